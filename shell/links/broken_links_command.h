#pragma once

#include "workbench/command.h"

namespace pondera {

/// The help page of the check for broken links.
[[nodiscard]] const Help& broken_links_help();

/// Checks all links of the open Website, after the page under edit was saved, and shows those that lead nowhere; the
/// one that the person chooses is then shown on its page.
void show_broken_links(Workbench& workbench);

}  // namespace pondera
