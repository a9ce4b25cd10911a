#pragma once

#include <QStringList>

namespace pondera {

/// The fonts that pages are written in: those that visitors have.
[[nodiscard]] QStringList font_names();

/// The HTML font sizes with their point sizes; the leading digit is the size that the editing control takes.
[[nodiscard]] QStringList font_sizes();

}  // namespace pondera
