#pragma once

#include <QString>

namespace pondera {

/// The fixed text of an Internet library number; "Error details not available." for one without. That of 12003 is the
/// one for a server whose own words cannot be read.
[[nodiscard]] QString win_inet_text(int number);

}  // namespace pondera
