#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of Websites as a whole and of interface models.
[[nodiscard]] const QList<Command>& website_commands();

/// New Website: asks for its name, its interface model and the kind of its first page, makes it and opens it. When the
/// person leaves before the model and page are chosen, nothing remains of it.
void Crea_Website(Workbench& workbench);

/// Open Website: lets the person choose one of the Websites and opens it.
void Apri_Website(Workbench& workbench);

/// Import Website: brings a Website from a folder among those of this person and opens it. A folder that is none but
/// holds some offers those.
void Importa_Website(Workbench& workbench);

/// Save Website as: copies the open Website under a new name and opens the copy.
void salva_con_nome2(Workbench& workbench);

/// Export Website: writes what visitors get into a folder or a ZIP file.
void Esporta_Website(Workbench& workbench);

/// Delete Website: deletes the open Website after three questions.
void Erase_Proj(Workbench& workbench);

/// Save interface model: makes the cards of the open Website a model for new ones.
void Salva_Modello(Workbench& workbench);

/// Delete interface model: deletes one that the person saved.
void Elimina_Modello(Workbench& workbench);

/// Saves the page under edit if it has changes; false when that failed (reported).
[[nodiscard]] bool save_changes(Workbench& workbench);

}  // namespace pondera
