#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of the window itself: save, exit, editing modes, wizard, settings, help, about.
[[nodiscard]] const QList<Command>& shell_commands();

/// The commands that the editing control executes: undo to select all, and the formats of text and paragraphs.
[[nodiscard]] const QList<Command>& edit_commands();

/// The help page of the main window, which F1 opens when no command has been chosen.
[[nodiscard]] const Help& window_help();

}  // namespace pondera
