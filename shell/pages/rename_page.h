#pragma once

#include "workbench/command.h"

namespace pondera {

/// Help of Rename Page.
[[nodiscard]] const Help& rename_page_help();

/// Gives the current page, and the pages of its group with it, a name that is asked for; links to them follow.
void mnu_rinomina_pagina(Workbench& workbench);

}  // namespace pondera
