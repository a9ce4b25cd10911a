#include "player/start/browser.h"

#include <algorithm>
#include <string>
#include <vector>

#include "player/start/child_process.h"

namespace pondera {

bool open_in_browser(const std::filesystem::path& page) {
    const std::vector<std::vector<std::string>> openers{{"xdg-open"}, {"gio", "open"}, {"sensible-browser"}};
    return std::ranges::any_of(openers, [&](std::vector<std::string> command) {
        command.push_back(page);
        return run_program(command) == 0;
    });
}

}  // namespace pondera
