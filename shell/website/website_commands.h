#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of Websites as a whole: New Website and Open Website.
[[nodiscard]] const QList<Command>& website_commands();

/// New Website: asks for its name, its interface model and the kind of its first page, makes it and opens it. When the
/// person leaves before the model and page are chosen, nothing remains of it.
void Crea_Website(Workbench& workbench);

/// Open Website: lets the person choose one of the Websites and opens it.
void Apri_Website(Workbench& workbench);

}  // namespace pondera
