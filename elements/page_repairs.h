#pragma once

#include <QString>

#include "base/roots.h"

namespace pondera {

/// The fixed text repairs that turn an editing copy's text into its published page's, in their fixed order: paths under
/// the Websites root become relative, "\" becomes "/", editing marks go, anchors broken after their "<" are joined,
/// links whose mark a code page damaged lose the damage, "file://" goes, and the event handlers of the search and login
/// boxes get their quotes. `website` is the page's own Website: "../NAME/x" becomes "x".
[[nodiscard]] QString repair_page_text(const QString& text, const Roots& roots, const QString& website);

/// `text` with "x" for "../NAME/x" in the Website NAME (any case, percent-encoded or not). Behind other path characters
/// ("../../NAME/x") it means another place.
[[nodiscard]] QString with_own_links_relative(const QString& text, const QString& website);

}  // namespace pondera
