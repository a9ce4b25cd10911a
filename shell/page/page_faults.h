#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

/// The message for a page that could not be loaded into the editing control.
[[nodiscard]] QString load_fault_message(FaultNumber number);

/// The message for a page, or its published page, that could not be saved. The editing control and the file operations
/// have different numbers for a full disk and a missing path; both are known.
[[nodiscard]] QString save_fault_message(FaultNumber number);

}  // namespace pondera
