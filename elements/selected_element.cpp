#include "elements/selected_element.h"

namespace pondera {

/// Reads the selected element's coordinates back from the document.
std::optional<SelectedElement> Agg_Coord(EditingControl& editor) {
    if (editor.status(EditCommand::kHyperlink) != CommandStatus::kEnabled) return std::nullopt;
    const Selection selection = editor.selection();
    return selection.type == SelectionType::kControl ? selection.element : std::nullopt;
}

}  // namespace pondera
