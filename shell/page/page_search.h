#pragma once

#include <QString>

#include <optional>

namespace pondera {

/// The page name as the loader uses it: without editing marks, with ".htm" when it holds none.
[[nodiscard]] QString page_to_load(const QString& name);

/// The editing copy that the loader opens for a page name, as a file name in `folder`: "§" + name, else "ç" + name,
/// else the first of "§_1_" + name to "§_9_" + name that exists.
[[nodiscard]] std::optional<QString> find_editing_copy(const QString& folder, const QString& name);

}  // namespace pondera
