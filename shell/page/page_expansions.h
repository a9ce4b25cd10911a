#pragma once

#include <QList>

#include "elements/published_page.h"

namespace pondera {

/// The placeholders that a save expands in the published page, in their order: menus, then media. A feature that has
/// its own expansion puts it in its row; until then the placeholder is published as it stands.
[[nodiscard]] QList<ExpansionStep> page_expansions();

}  // namespace pondera
