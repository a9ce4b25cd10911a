// The installer: copies the package that it lies in to the person's own folder.
#include <cstdlib>

#include "player/setup/installation.h"
#include "player/setup/screen.h"

namespace {

/// "12.3 MB".
std::string megabytes(std::uintmax_t bytes) {
    constexpr std::uintmax_t kTenth = (1 << 20) / 10;
    const std::uintmax_t tenths = bytes / kTenth + 1;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

}  // namespace

int main() {
    const std::filesystem::path installer = pondera::program_folder();
    const std::string website = pondera::website_of_installer(installer);
    const auto screen = pondera::setup_screen(installer, website.empty() ? "Install" : "Install " + website);
    const auto tell = [&](const std::string& text) { screen->tell(text.c_str()); };

    auto package = pondera::package_of_installer(installer);
    const std::string insert = "Please insert the CD \"" + website + "\".";
    while (!package && !website.empty() &&
           screen->insert_disc(insert.c_str(), (installer / "Inserisci_CD.gif").c_str()))
        package = pondera::package_of_installer(installer);
    if (!package) return EXIT_FAILURE;

    const auto installation = pondera::Installation::of(website);
    const std::string question = "Do you want to copy \"" + website + "\" to this computer?\n\nIt takes " +
                                 megabytes(size_to_install(*package)) +
                                 ", appears among your applications and then works without the CD.";
    if (!screen->ask(question.c_str(), "Install", "Cancel")) return EXIT_FAILURE;
    const auto installed =
        pondera::install(*package, installation, [&](int done, int total) { return screen->advance(done, total); });
    if (!installed) {
        tell("\"" + website + "\" was not installed.\n\n" + installed.error());
    } else if (*installed) {
        tell("\"" + website + "\" is installed. You find it among your applications.\n\nIt lies in the folder\n" +
             installation.folder.string());
    }
    return installed && *installed ? EXIT_SUCCESS : EXIT_FAILURE;
}
