#pragma once

#include "workbench/command.h"

namespace pondera {

/// Help of New Page.
[[nodiscard]] const Help& new_page_help();

/// Makes a page from the Website's second card, under a name that is asked for, and opens it.
void new_page(Workbench& workbench);

}  // namespace pondera
