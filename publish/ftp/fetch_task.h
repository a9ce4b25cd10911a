#pragma once

#include <QStringList>

#include "publish/commands/remote_task.h"
#include "publish/sending/publication.h"
#include "publish/sending/send_task.h"

namespace pondera {

/// The files that verifying found on the server and that are to be fetched, as paths in the Website: pictures, sounds
/// and pages (`is_listed_name`) that the Website lacks. Nothing that the Website has is ever fetched over it, nothing
/// that it would not publish, and nothing that was published from here and is deleted here since.
[[nodiscard]] QStringList files_to_fetch(const RemoteFiles& found, const QString& website_folder,
                                         const PublicationRecord& record);

/// Fetches files of a Website's folder on the server to the same places of the Website.
class FetchTask : public RemoteTask {
  public:
    /// `paths` are relative to both folders.
    FetchTask(QString remote_folder, QString website_folder, QStringList paths);

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    /// The files that are in the Website now.
    [[nodiscard]] const QStringList& fetched() const { return fetched_; }
    /// Those that the server refused, with its words.
    [[nodiscard]] const QList<RefusedFile>& refused() const { return refused_; }
    [[nodiscard]] qsizetype count() const { return count_; }

  private:
    QString remote_folder_;
    QString website_folder_;
    QStringList waiting_;
    QStringList running_;  ///< of this turn, in running order
    qsizetype count_;
    QStringList fetched_;
    QList<RefusedFile> refused_;
};

}  // namespace pondera
