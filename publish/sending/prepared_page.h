#pragma once

#include <QString>

#include "base/roots.h"

namespace pondera {

/// A published page's text without what points into the folders of this machine: paths below the Websites root become
/// relative to the page, "../NAME/" in the Website NAME goes, and so do editing marks that links were left with. A page
/// that was saved by the editor has none of these; pages that other programs wrote may. All else stays as it is.
[[nodiscard]] QString prepared_page(const QString& text, const Roots& roots, const QString& website);

}  // namespace pondera
