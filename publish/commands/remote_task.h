#pragma once

#include <QString>

#include "publish/commands/command_stack.h"
#include "publish/transfer/transfer_outcome.h"

namespace pondera {

/// How a command ended that the server answered.
struct CommandAnswer {
    QString command;
    int code = kFine;              ///< kFine or kServerAnsweredError
    QString text;                  ///< the server's words for the latter
    QString folder;                ///< the current remote folder, absolute
    const RemoteListing& listing;  ///< of the last "DIR"

    [[nodiscard]] bool fine() const { return code == kFine; }
};

/// A piece of work on a server that is done with commands of the transfer control. It pushes them in turns, as many as
/// the stack takes, and is told of each one's end. It knows no window; who runs it is `CommandExecutor`.
class RemoteTask {
  public:
    RemoteTask() = default;
    virtual ~RemoteTask() = default;
    RemoteTask(const RemoteTask&) = delete;
    RemoteTask& operator=(const RemoteTask&) = delete;

    /// The stack is empty: pushes the commands of the next turn, which begins in the remote folder `folder` (empty
    /// before the first session). Pushing none ends the task.
    virtual void next_turn(CommandStack& stack, const QString& folder) = 0;

    /// A command has ended; may push more commands, or drop those that made sense only if it had succeeded. Commands
    /// that follow a refused "CD" would work in the wrong folder: they are the task's to drop.
    virtual void answered(const CommandAnswer& answer, CommandStack& stack) = 0;

    /// The running "GET" or "SEND": bytes that went so far.
    virtual void moved(qint64 /*bytes*/) {}
};

}  // namespace pondera
