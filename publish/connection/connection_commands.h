#pragma once

#include "workbench/command.h"

namespace pondera {

/// The rows of the commands about the Internet connection.
[[nodiscard]] const QList<Command>& connection_commands();

}  // namespace pondera
