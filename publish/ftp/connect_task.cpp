#include "publish/ftp/connect_task.h"

#include "publish/transfer/remote_name.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {

void ConnectTask::next_turn(CommandStack& stack, const QString& /*folder*/) {
    if (begun_) return;
    begun_ = true;
    QStringList commands;
    for (const QString& name : way_) commands << command_text(u"CD"_s, name);
    stack.push_in_running_order(commands << u"DIR"_s);
}

void ConnectTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    if (answer.command == u"DIR") {
        listed_ = answer.fine();
        if (listed_) listing_ = answer.listing;
        return;
    }
    remote_folder_ = answer.folder;
    if (answer.fine()) {
        ++entered_;
        return;
    }
    stack.clear();
    for (const QString& name : way_.sliced(entered_)) remote_folder_ = resolve_remote(remote_folder_, name);
}

}  // namespace pondera
