#pragma once

#include <optional>

#include "workbench/editing_control.h"

namespace pondera {

/// Agg_Coord: the selected image or positioned element with its place and size as the editing control has them now,
/// after whatever dragging and sizing; nothing when no element is selected.
[[nodiscard]] std::optional<SelectedElement> Agg_Coord(EditingControl& editor);

}  // namespace pondera
