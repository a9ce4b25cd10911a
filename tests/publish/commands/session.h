#pragma once

#include "publish/commands/command_executor.h"
#include "tests/publish/transfer/control.h"

namespace pondera {

/// A session on a server, the tasks that are run on it one after the other, and what the dialog would be told of them.
class Session {
  public:
    explicit Session(const QString& host, int highest_index = 5000) : executor(control.inet, highest_index) {
        host.startsWith(u"sftp") ? control.meet(host) : control.inet.set_host(host);
        QObject::connect(&executor, &CommandExecutor::Executing, [this](const QString& next) { commands << next; });
        QObject::connect(&executor, &CommandExecutor::StatusChanged, [this] { statuses << executor.status(); });
        QObject::connect(&executor, &CommandExecutor::Ended, [this](const TaskEnd& how) { end = how; });
    }

    /// Runs a task to its end; a null one has nothing to do.
    template <typename Task>
    std::shared_ptr<Task> run(std::shared_ptr<Task> task) {
        commands.clear();
        if (task) executor.run(task);
        Control::wait_until([this] { return !executor.busy(); });
        return task;
    }

    Control control;
    CommandExecutor executor;
    QStringList commands;  ///< of the last task
    QStringList statuses;
    TaskEnd end;  ///< of the last task
};

}  // namespace pondera
