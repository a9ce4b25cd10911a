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

/// What one fetching brings in at most: far more than a Website has, and far less than fills a disk.
struct FetchBounds {
    qsizetype files = 20'000;
    qint64 bytes = qint64(4) << 30;
};

/// Fetches files of a Website's folder on the server to the same places of the Website.
class FetchTask : public RemoteTask {
  public:
    /// `paths` are relative to both folders.
    FetchTask(QString remote_folder, QString website_folder, QStringList paths, FetchBounds bounds = {});

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    /// The files that are in the Website now.
    [[nodiscard]] const QStringList& fetched() const { return fetched_; }
    /// Those that the server refused, with its words, and those beyond the bounds.
    [[nodiscard]] const QList<RefusedFile>& refused() const { return refused_; }
    [[nodiscard]] qsizetype count() const { return count_; }

  private:
    void refuse_rest(const QString& why);

    QString remote_folder_;
    QString website_folder_;
    FetchBounds bounds_;
    qint64 bytes_ = 0;  ///< that were fetched
    QStringList waiting_;
    QStringList running_;  ///< of this turn, in running order
    qsizetype count_;
    QStringList fetched_;
    QList<RefusedFile> refused_;
};

}  // namespace pondera
