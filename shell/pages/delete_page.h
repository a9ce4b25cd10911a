#pragma once

#include "workbench/command.h"

namespace pondera {

/// Help of Delete Page.
[[nodiscard]] const Help& delete_page_help();

/// Deletes a page that is chosen from the page list.
void Erase_Vid(Workbench& workbench);

/// Deletes a page that was chosen in the site tree.
void mnu_treedelete(Workbench& workbench, const QString& page);

}  // namespace pondera
