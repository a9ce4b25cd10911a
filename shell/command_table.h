#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// All commands of the program. Within a menu the rows stand in the order of this table, so this is where a subsystem's
/// commands get their place.
[[nodiscard]] QList<Command> command_table();

}  // namespace pondera
