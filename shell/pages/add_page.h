#pragma once

#include "workbench/command.h"

namespace pondera {

/// Help of Add Page.
[[nodiscard]] const Help& add_page_help();

/// Adds a page behind the current one, for visitors to leaf through, and opens it.
void Gestione_Agg_Pag(Workbench& workbench);

/// The published file name of the page that the editing control holds; empty when it holds none.
[[nodiscard]] QString Leggi_Nome_Doc_Cor(Workbench& workbench);

}  // namespace pondera
