#pragma once

#include <QObject>
#include <QStringList>

#include <memory>

#include "publish/commands/remote_task.h"
#include "publish/transfer/internet_transfer.h"

namespace pondera {

/// How a task ended.
struct TaskEnd {
    enum class How { kDone, kBroken, kCancelled } how = How::kDone;
    int code = kFine;  ///< for kBroken: the control's `ResponseCode`
    QString text;      ///< for kBroken: a sentence for the person
};

/// Does a `RemoteTask`: hands the transfer control one command after the other, whenever it is idle, and keeps the text
/// of the status box. One task runs at a time.
class CommandExecutor : public QObject {
    Q_OBJECT
  public:
    /// `highest_index` is the command stack's.
    CommandExecutor(InternetTransfer& inet, int highest_index, QObject* parent = nullptr);
    ~CommandExecutor() override;

    /// Starts a task; nothing happens while another one runs. `Ended` comes when the task has no more commands, when
    /// the session broke (the remaining commands are dropped) or after `cancel`.
    void run(std::shared_ptr<RemoteTask> task);

    /// Ends the running task and the control's command; the session goes with it.
    void cancel();

    /// Hands over the next command of the running task if the control is idle. It does so by itself whenever a command
    /// ends; calling it at any other time does no harm.
    void step();

    [[nodiscard]] bool busy() const { return task_ != nullptr; }

    /// Whether a task may start: the status reads "Connected.".
    [[nodiscard]] bool ready() const;

    /// The status box's text: the state of the connection and, below it, the error replies of the server during the
    /// last task, each on a line as "12003 : 550 No such file".
    [[nodiscard]] QString status() const;

  signals:
    /// `status` has changed.
    void StatusChanged();
    /// A command goes to the control; `pending` of the stack remain behind it.
    void Executing(const QString& command, int pending);
    /// A command was answered; the task knows of it already.
    void Answered(const QString& command);
    /// Bytes of the running file went.
    void Moved();
    void Ended(const pondera::TaskEnd& end);

  private:
    void change(InternetState state);
    void answer();
    void end(const TaskEnd& end);
    void show(const QString& state);

    InternetTransfer& inet_;
    CommandStack stack_;
    std::shared_ptr<RemoteTask> task_;
    QString command_;
    QString state_;
    QStringList replies_;
};

/// The text of the progress label for a command: without `staging_folder` and its separator, which every local path of
/// a transfer begins with, and only up to the first blank at or after the seventh character.
[[nodiscard]] QString shown_command(QString command, const QString& staging_folder);

/// What the progress label beside it says while `pending` commands wait: "Please wait.." for more than ten of them.
[[nodiscard]] QString waiting_text(int pending);

}  // namespace pondera
