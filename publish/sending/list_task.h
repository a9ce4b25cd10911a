#pragma once

#include <QStringList>

#include "publish/commands/remote_task.h"
#include "publish/sending/publication.h"

namespace pondera {

/// Lists folders of a Website on the server, with as few commands as that takes. A folder that is not there counts as
/// listed and empty; one that the server does not list counts as not listed.
class ListTask : public RemoteTask {
  public:
    /// `remote_folder` is the Website's own on the server, absolute; `folders` are relative to it, "" is itself. One
    /// whose parent is among those before it is only asked for when it is there.
    ListTask(QString remote_folder, QStringList folders);

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    [[nodiscard]] const RemoteFiles& found() const { return found_; }

  private:
    [[nodiscard]] bool is_known_missing(const QString& folder) const;

    QString remote_folder_;
    QStringList folders_;
    QString current_;  ///< the folder that is being listed
    RemoteFiles found_;
};

}  // namespace pondera
