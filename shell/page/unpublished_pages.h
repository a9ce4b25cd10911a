#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// Writes the published page of every page of a Website that so far has only an editing copy, as saving it would. Ends
/// with the first that fails.
[[nodiscard]] FileResult<void> publish_unpublished_pages(const Roots& roots, const QString& website);

}  // namespace pondera
