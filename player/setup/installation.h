#pragma once

#include <expected>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "player/start/package.h"

namespace pondera {

/// Where a package is, or would be, installed for this person.
struct Installation {
    std::string website;
    std::filesystem::path folder;         ///< holds what is copied, laid out as the package
    std::filesystem::path desktop_entry;  ///< the file that puts it among the applications

    /// Below $XDG_DATA_HOME, by default ~/.local/share.
    [[nodiscard]] static Installation of(const std::string& website);

    /// The list of what was installed: paths relative to `folder`, one a line. Without it nothing is installed.
    [[nodiscard]] std::filesystem::path list() const { return folder / "installed_files.txt"; }
    [[nodiscard]] bool present() const;
};

/// The bytes that installing a package takes.
[[nodiscard]] std::uintmax_t size_to_install(const Package& package);

/// Called between steps with how much is done of how much; false cancels.
using Advance = std::function<bool(int done, int total)>;

/// Copies the package's pages and player, its uninstaller and icon, and writes the desktop entry. What an older
/// installation had and the package has not any more goes. After a failure or cancelling nothing stays of a first
/// installation, and an older one stays. False when it was cancelled; the error is a sentence.
[[nodiscard]] std::expected<bool, std::string> install(const Package& package, const Installation& installation,
                                                       const Advance& advance);

/// Removes exactly what was installed; the result is what stays in the folder because somebody else put it there.
[[nodiscard]] std::vector<std::filesystem::path> uninstall(const Installation& installation);

}  // namespace pondera
