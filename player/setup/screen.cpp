#include "player/setup/screen.h"

#include <cstdlib>

#include "player/start/child_process.h"
#include "player/start/library.h"
#include "player/start/plain_dialog.h"

namespace pondera {

namespace {

class PlainScreen : public SetupScreen {
  public:
    explicit PlainScreen(std::string title) : title_(std::move(title)) {}

    bool ask(const char* text, const char* yes, const char* no) override { return ask_plainly(title_, text, yes, no); }
    void tell(const char* text) override { tell_plainly(title_, text); }
    bool insert_disc(const char* text, const char* /*picture*/) override {
        return ask_plainly(title_, text, "Try again", "Cancel");
    }
    bool advance(int /*done*/, int /*total*/) override { return true; }

  private:
    std::string title_;
};

}  // namespace

std::shared_ptr<SetupScreen> setup_screen(const std::filesystem::path& installer, const std::string& title) {
    const std::filesystem::path library = installer / "pndsetup.so";
    const std::filesystem::path icon = installer / "pnd.ico";
    const auto window = [&] {
        auto* open = reinterpret_cast<PndSetupScreen*>(function_of_library(library, "pnd_setup_screen"));
        return open == nullptr ? nullptr : open(title.c_str(), icon.c_str());
    };
    // A first try in a child: on a machine without a screen it does not come back.
    if (!succeeds_in_child([&](const auto&) { return window() == nullptr ? EXIT_FAILURE : EXIT_SUCCESS; }))
        return std::make_shared<PlainScreen>(title);
    return {window(), [](SetupScreen*) {}};
}

}  // namespace pondera
