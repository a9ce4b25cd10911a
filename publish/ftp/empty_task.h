#pragma once

#include <QStringList>

#include <functional>

#include "publish/commands/remote_task.h"
#include "publish/sending/send_task.h"

namespace pondera {

class PublicationRecord;

/// Deletes everything in a Website's folder on the server, folder by folder, as their listings tell; the folder itself
/// stays. What the server confirmed is forgotten by the record at once.
class EmptyTask : public RemoteTask {
  public:
    /// `spared` tells entries that are left alone wherever they stand; a folder that holds one stays.
    using Spared = std::function<bool(const RemoteEntry&)>;

    /// `remote_folder` is absolute; `record` may be null, and outlives the task.
    EmptyTask(QString remote_folder, PublicationRecord* record, Spared spared = {});

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    [[nodiscard]] int deleted() const { return deleted_; }
    /// What could not be deleted or not be looked into, with the server's words; folders end in "/".
    [[nodiscard]] const QList<RefusedFile>& kept() const { return kept_; }
    /// Why the emptying stopped before its end: the record could not be written. Empty else.
    [[nodiscard]] const QString& stopped_by() const { return stopped_by_; }

  private:
    struct Level {
        QString path;  ///< relative to the Website's folder; "" for itself
        QStringList files{};
        QStringList folders{};
        bool listed = false;
        bool stays = false;  ///< something in it could not be deleted
    };

    void look_into(const CommandAnswer& answer);
    void leave(CommandStack& stack, const QString& folder);
    void keep(const QString& path, const QString& reply);
    void forget(const QString& path, CommandStack& stack);
    [[nodiscard]] QString absolute(const QString& path) const;
    [[nodiscard]] QString below(const QString& name) const;

    QString remote_folder_;
    PublicationRecord* record_;
    Spared spared_;
    QList<Level> levels_;
    QStringList deleting_;  ///< names of this turn, in running order
    QString leaving_;       ///< the folder of this turn's "RMDIR"
    int deleted_ = 0;
    QList<RefusedFile> kept_;
    QString stopped_by_;
};

}  // namespace pondera
