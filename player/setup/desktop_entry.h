#pragma once

#include <filesystem>
#include <string>

namespace pondera {

/// What the desktop's list of applications says about an installed multimedia.
struct DesktopEntry {
    std::string name;
    std::filesystem::path program;
    std::filesystem::path icon;
    std::filesystem::path uninstaller;
};

/// The text of an entry's file, as the desktop's rules quote it.
[[nodiscard]] std::string desktop_entry_text(const DesktopEntry& entry);

}  // namespace pondera
