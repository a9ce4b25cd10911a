#pragma once

namespace pondera {

/// How a setup program speaks with the person. All texts are UTF-8.
class SetupScreen {
  public:
    SetupScreen() = default;
    virtual ~SetupScreen() = default;
    SetupScreen(const SetupScreen&) = delete;
    SetupScreen& operator=(const SetupScreen&) = delete;

    /// True when the person chose `yes`; closing the window is `no`.
    virtual bool ask(const char* text, const char* yes, const char* no) = 0;

    virtual void tell(const char* text) = 0;

    /// Asks to put the disc in, with the picture at that path; true when the person says that it is there.
    virtual bool insert_disc(const char* text, const char* picture) = 0;

    /// Shows how much of the work is done, in any unit; false once the person has cancelled it.
    virtual bool advance(int done, int total) = 0;
};

/// The window that a setup program shows, with a title and the icon at that path. It lasts as long as the program. The
/// library "pndsetup.so" has it under the name "pnd_setup_screen".
using PndSetupScreen = SetupScreen*(const char* title, const char* icon);

}  // namespace pondera
