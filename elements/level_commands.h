#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The entries of the Levels menu, `D2DSub0` to `D2DSub7`.
[[nodiscard]] const QList<Command>& level_commands();

/// The caption of `D2DSub7` for the lock command's status when the menu opens.
[[nodiscard]] QString levels_lock_caption(CommandStatus status);

}  // namespace pondera
