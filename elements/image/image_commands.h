#pragma once

#include <QList>

#include "workbench/command.h"

namespace pondera {

/// The commands of pictures: insert an image or the logo, image size.
[[nodiscard]] const QList<Command>& image_commands();

/// Asks for a new size of the selected image and sets it, as one step that can be undone. Does nothing when no image is
/// selected.
void fDimm_Imm(Workbench& workbench);

}  // namespace pondera
