#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of links: make or change a link, remove it, name an anchor, list the broken links.
[[nodiscard]] const QList<Command>& link_commands();

/// Help of links.
[[nodiscard]] const Help& link_help();

/// Makes the selection a link to a page of the Website, or changes the link in which the caret stands, as one step.
/// Tells the person why when that cannot be.
void link_selection_to(Workbench& workbench, const QString& page);

}  // namespace pondera
