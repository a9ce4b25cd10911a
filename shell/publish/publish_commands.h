#pragma once

#include "workbench/command.h"

namespace pondera {

/// The rows of the commands that publish the open Website.
[[nodiscard]] const QList<Command>& publish_commands();

void mnu_pubblica(Workbench& workbench);
void mnu_pubblica_dominio(Workbench& workbench);
void mnu_pubblica_cartella(Workbench& workbench);
void mnu_player(Workbench& workbench);

}  // namespace pondera
