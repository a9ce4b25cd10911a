#pragma once

#include <filesystem>

namespace pondera {

/// A function of a library that lies beside the program; null, after saying why on standard error, when the library is
/// not there or the machine lacks what it needs. The library stays loaded.
[[nodiscard]] void* function_of_library(const std::filesystem::path& library, const char* name);

}  // namespace pondera
