#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "player/setup/setup_screen.h"

namespace pondera {

/// The window of the setup support library in `installer` when this machine can show it, else the desktop's own dialogs
/// or the terminal.
[[nodiscard]] std::shared_ptr<SetupScreen> setup_screen(const std::filesystem::path& installer,
                                                        const std::string& title);

}  // namespace pondera
