#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The command that makes a page of the open Website from a web page file.
[[nodiscard]] const QList<Command>& external_page_commands();

}  // namespace pondera
