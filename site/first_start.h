#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// Brings the files that the program ships with (templates, tools, help pages, graphics; `shipped` is laid out as the
/// base folder) into the base folder. Missing files are copied; files of an older version are replaced when they are
/// still as they were shipped; what the user changed stays. The file "shipped_files.txt" in the base folder keeps the
/// checksums of what was copied. A file that fails does not keep the others from being copied; the first fault is the
/// result.
[[nodiscard]] FileResult<void> install_shipped_files(const QString& shipped, const Roots& roots);

}  // namespace pondera
