#include "shell/command_table.h"

#include "elements/image/image_commands.h"
#include "elements/level_commands.h"
#include "publish/connection/connection_commands.h"
#include "shell/links/link_commands.h"
#include "shell/pages/page_commands.h"
#include "shell/publish/publish_commands.h"
#include "shell/shell_commands.h"
#include "shell/website/website_commands.h"

namespace pondera {

QList<Command> command_table() {
    return website_commands() + page_commands() + shell_commands() + edit_commands() + image_commands() +
           link_commands() + level_commands() + publish_commands() + connection_commands();
}

}  // namespace pondera
