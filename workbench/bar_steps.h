#pragma once

#include "base/steps.h"

class QProgressBar;

namespace pondera {

/// The steps of work that runs while its form waits: the bar shows them, the form answers the person every 30 ms, and
/// the work stops once `cancelled` is true. Both must last as long as the work.
[[nodiscard]] Steps steps_of_bar(QProgressBar& bar, const bool& cancelled);

}  // namespace pondera
