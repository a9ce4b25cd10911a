#include "shell/command_table.h"

#include "shell/shell_commands.h"

namespace pondera {

QList<Command> command_table() {
    return shell_commands() + edit_commands();
}

}  // namespace pondera
