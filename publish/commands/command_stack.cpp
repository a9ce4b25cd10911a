#include "publish/commands/command_stack.h"

#include <ranges>

namespace pondera {

void CommandStack::push(const QString& command) {
    if (room() <= 0) throw SubscriptOutOfRange();
    commands_ << command;
}

void CommandStack::push_in_running_order(const QStringList& commands) {
    if (commands.size() > room()) throw SubscriptOutOfRange();
    for (const QString& command : commands | std::views::reverse) commands_ << command;
}

}  // namespace pondera
