#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

#include "publish/commands/remote_task.h"
#include "publish/sending/publication.h"

namespace pondera {

/// How far a sending is.
struct SendProgress {
    int files_done = 0;
    int files = 0;
    qint64 bytes_done = 0;  ///< with those of the running file
    qint64 bytes = 0;
};

/// Sends a staged Website, folder by folder: each folder is made and entered, its files go up in the plan's order, and
/// it is left by as many "CDUP" as it is deep. A folder of more files than the stack takes is sent in turns. After the
/// last file come the removals. What the server confirmed goes into the record before the next command.
class SendTask : public RemoteTask {
  public:
    struct Job {
        QString staging_folder;  ///< holds the files of the plan
        QString remote_folder;   ///< absolute path of the Website's folder on the server; made when it is missing
        PublicationPlan plan;
        PublicationRecord* record = nullptr;  ///< outlives the task
        QStringList folders{};                ///< known to be on the server (`RemoteFiles::folders`): they are not made
    };
    explicit SendTask(Job job);
    ~SendTask() override;

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;
    void moved(qint64 bytes) override;

    [[nodiscard]] SendProgress progress() const;

    /// The files that did not go up, with the server's words. A folder that cannot be entered refuses all of its files.
    [[nodiscard]] const QList<RefusedFile>& refused() const;

    /// The files that should have been removed and are still there.
    [[nodiscard]] const QList<RefusedFile>& not_removed() const;

    /// Why the sending stopped before its end: the server is full, has no folder for the Website, or the record could
    /// not be written. Empty else.
    [[nodiscard]] QString stopped_by() const;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace pondera
