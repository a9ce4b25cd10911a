#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of pages: making, adding, bringing in, renaming and deleting them.
[[nodiscard]] const QList<Command>& page_commands();

}  // namespace pondera
