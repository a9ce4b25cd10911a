#pragma once

#include <QString>

namespace pondera {

/// FzIndex: the next free stacking level of a page, the highest level in its text plus one, as decimal text ("1" for a
/// page without levels). Reads four characters after each "Z-INDEX: " (a fifth digit is not seen) as a 16-bit signed
/// number; what is no number is skipped. A level of 0 gives way to whatever follows it.
[[nodiscard]] QString FzIndex(const QString& page);

/// First level step of an insertion template: its "Z-INDEX: 100" becomes the free level.
[[nodiscard]] QString with_free_level(QString markup, const QString& level);

/// Last level step of the image and logo templates: every "Z-INDEX: 100" that is in the markup now becomes "Z-INDEX:
/// 830". A free level that begins with 100 is caught as well, as pages expect: 1005 ends as 8305.
[[nodiscard]] QString with_picture_level(QString markup);

}  // namespace pondera
