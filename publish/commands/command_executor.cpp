#include "publish/commands/command_executor.h"

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kManyPending = 10;
constexpr int kShownFrom = 6;           // the index of the seventh character
constexpr qsizetype kMostReplies = 50;  // a server that refuses a thousand files fills no window

/// The text of the status box for a state of the control; empty where it keeps what it shows.
QString state_text(InternetState state) {
    switch (state) {
        case InternetState::kResolvingHost:
            return u"Wait for search of the Host.."_s;
        case InternetState::kHostResolved:
            return u"Name of Host resolved.."_s;
        case InternetState::kConnecting:
            return u"Connecting.."_s;
        case InternetState::kConnected:
            return u"Connected."_s;
        case InternetState::kRequesting:
        case InternetState::kRequestSent:
        case InternetState::kReceivingResponse:
        case InternetState::kResponseCompleted:
            return u"Waiting for reply from Server.."_s;
        case InternetState::kResponseReceived:
            return u"Reply received.."_s;
        case InternetState::kDisconnecting:
            return u"Disconnecting from the Server.."_s;
        case InternetState::kDisconnected:
            return u"Disconnected"_s;
        case InternetState::kError:
            return u"The server signalled an error!"_s;
        case InternetState::kNone:
            break;
    }
    return {};
}

}  // namespace

CommandExecutor::CommandExecutor(InternetTransfer& inet, int highest_index, QObject* parent)
    : QObject(parent), inet_(inet), stack_(highest_index) {
    connect(&inet_, &InternetTransfer::StateChanged, this, &CommandExecutor::change);
    connect(&inet_, &InternetTransfer::Progress, this, [this](qint64 now) {
        if (!task_) return;
        task_->moved(now);
        emit Moved();
    });
}

CommandExecutor::~CommandExecutor() = default;

bool CommandExecutor::ready() const {
    return !busy() && state_ == state_text(InternetState::kConnected);
}

QString CommandExecutor::status() const {
    return (QStringList(state_) + replies_).join(u'\n');
}

void CommandExecutor::run(std::shared_ptr<RemoteTask> task) {
    if (task_) return;
    task_ = std::move(task);
    replies_.clear();
    emit StatusChanged();
    step();
}

void CommandExecutor::cancel() {
    if (!task_) return;
    stack_.clear();
    inet_.Cancel();
    end({.how = TaskEnd::How::kCancelled, .code = kCancelled, .text = inet_.ResponseInfo()});
}

void CommandExecutor::step() {
    if (!task_ || inet_.StillExecuting()) return;
    if (stack_.empty()) task_->next_turn(stack_, inet_.RemoteFolder());
    if (stack_.empty()) {
        show(state_text(InternetState::kConnected));
        return end({});
    }
    command_ = stack_.take();
    emit Executing(command_, stack_.count());
    if (task_) inet_.Execute(command_);
}

void CommandExecutor::change(InternetState state) {
    if (const QString text = state_text(state); !text.isEmpty()) show(text);
    if (!task_) return;
    if (state == InternetState::kError) {
        stack_.clear();
        end({.how = TaskEnd::How::kBroken, .code = inet_.ResponseCode(), .text = inet_.ResponseInfo()});
    } else if (state == InternetState::kResponseCompleted) {
        answer();
    }
}

void CommandExecutor::answer() {
    const CommandAnswer answer{.command = command_,
                               .code = inet_.ResponseCode(),
                               .text = inet_.ResponseInfo(),
                               .folder = inet_.RemoteFolder(),
                               .listing = inet_.Listing()};
    if (answer.code == kServerAnsweredError) {
        replies_ << u"%1 : %2"_s.arg(answer.code).arg(answer.text);
        if (replies_.size() > kMostReplies) replies_.removeFirst();
        inet_.Cancel();
        emit StatusChanged();
    }
    const std::shared_ptr<RemoteTask> task = task_;
    task->answered(answer, stack_);
    emit Answered(command_);
    step();
}

void CommandExecutor::end(const TaskEnd& end) {
    task_.reset();
    emit Ended(end);
}

void CommandExecutor::show(const QString& state) {
    if (std::exchange(state_, state) != state) emit StatusChanged();
}

QString shown_command(QString command, const QString& staging_folder) {
    if (!staging_folder.isEmpty()) {
        command.remove(staging_folder + u'/');
        command.remove(staging_folder + u'\\');
    }
    const qsizetype end = command.indexOf(u' ', kShownFrom);
    return end < 0 ? command : command.first(end);
}

QString waiting_text(int pending) {
    return pending > kManyPending ? u"Please wait.."_s : QString();
}

}  // namespace pondera
