#include <cstdlib>

#include "player/start/browser.h"
#include "player/start/child_process.h"
#include "player/start/library.h"
#include "player/start/package.h"
#include "player/start/plain_dialog.h"
#include "player/window/pnd_play.h"

namespace {

/// Shows the page in the player's own window until the person closes it. False when this machine cannot.
bool show_in_window(int argc, char** argv, const pondera::Package& package) {
    return pondera::succeeds_in_child([&](const std::function<void()>& succeeded) {
        auto* play = reinterpret_cast<pondera::PndPlay*>(
            pondera::function_of_library(package.folder / "pndplay.so", "pnd_play"));
        if (play == nullptr) return EXIT_FAILURE;
        const auto shown = [](void* told) { (*static_cast<const std::function<void()>*>(told))(); };
        return play(argc, argv, package.home_page().c_str(), shown, const_cast<std::function<void()>*>(&succeeded));
    });
}

}  // namespace

int main(int argc, char** argv) {
    const auto package = pondera::package_in(pondera::program_folder());
    if (!package) {
        pondera::tell_plainly("Multimedia", "There are no pages beside this program.");
        return EXIT_FAILURE;
    }
    if (show_in_window(argc, argv, *package) || pondera::open_in_browser(package->home_page())) return EXIT_SUCCESS;
    pondera::tell_plainly(
        package->website,
        "No Web browser was found on this computer. Open this page in a browser:\n" + package->home_page().string());
    return EXIT_FAILURE;
}
