// The uninstaller: removes what the installer of the same package has copied.
#include <algorithm>
#include <cstdlib>

#include "player/setup/installation.h"
#include "player/setup/screen.h"

namespace {

constexpr std::size_t kFilesNamed = 10;

/// What is said of files that stay.
std::string words_about(const std::vector<std::filesystem::path>& left, const std::filesystem::path& folder) {
    if (left.empty()) return {};
    std::string text = "\n\nThese files are not of it and stay in\n" + folder.string() + ":";
    for (std::size_t i = 0; i < std::min(left.size(), kFilesNamed); ++i)
        text += '\n' + left[i].lexically_relative(folder).string();
    return left.size() > kFilesNamed ? text + "\n..." : text;
}

}  // namespace

int main() {
    const std::filesystem::path installer = pondera::program_folder();
    const std::string website = pondera::website_of_installer(installer);
    const auto installation = pondera::Installation::of(website);
    const auto screen = pondera::setup_screen(installer, website.empty() ? "Uninstall" : "Uninstall " + website);
    if (website.empty() || !installation.present()) {
        screen->tell(("\"" + website + "\" is not installed on this computer.").c_str());
        return EXIT_FAILURE;
    }
    const std::string question = "Do you want to remove \"" + website + "\" from this computer?";
    if (!screen->ask(question.c_str(), "Remove", "Cancel")) return EXIT_FAILURE;
    const auto left = uninstall(installation);
    if (installation.present()) {
        screen->tell(
            ("\"" + website + "\" could not be removed. Is the folder protected?\n" + installation.folder.string())
                .c_str());
        return EXIT_FAILURE;
    }
    screen->tell(
        ("\"" + website + "\" has been removed from this computer." + words_about(left, installation.folder)).c_str());
    return EXIT_SUCCESS;
}
