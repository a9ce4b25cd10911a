#pragma once

#include <string>

namespace pondera {

/// Tells a person something without a window library: on standard error, and in a dialog of the desktop's own dialog
/// programs when there is one.
void tell_plainly(const std::string& title, const std::string& text);

/// Asks a person to agree, in the terminal or in a dialog as tell_plainly. False when there is nothing to ask with.
[[nodiscard]] bool ask_plainly(const std::string& title, const std::string& text, const std::string& yes,
                               const std::string& no);

}  // namespace pondera
