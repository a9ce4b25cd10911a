#pragma once

#include <filesystem>

namespace pondera {

/// Opens a page in the browser of the person; false when the machine offers none.
[[nodiscard]] bool open_in_browser(const std::filesystem::path& page);

}  // namespace pondera
