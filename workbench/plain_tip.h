#pragma once

#include <QString>

namespace pondera {

/// A tool tip that shows a text from elsewhere, such as a file's name, as it is: tool tips take what looks like markup
/// for such.
[[nodiscard]] QString plain_tip(const QString& text);

}  // namespace pondera
