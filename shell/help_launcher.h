#pragma once

#include <QProcess>

#include "base/roots.h"
#include "workbench/command.h"

namespace pondera {

/// Starts the help viewer of the tools folder. One page of help is open at a time: the next one takes the place of the
/// last.
class HelpLauncher {
  public:
    explicit HelpLauncher(const Roots& roots) : roots_(roots) {}
    ~HelpLauncher();
    HelpLauncher(const HelpLauncher&) = delete;
    HelpLauncher& operator=(const HelpLauncher&) = delete;

    /// Shows a help page; false when the viewer cannot be started.
    bool show(const Help& help);

    /// The viewer as it is started, native: "Help.exe" in the tools folder.
    [[nodiscard]] QString program() const;

  private:
    Roots roots_;
    QProcess viewer_;
};

/// Puts the help viewer `installed` (a file) into the tools folder: as a link where the system has them, else as a
/// copy. What another version left there is replaced; nothing happens when it is up to date. False when the tools
/// folder cannot be written.
bool place_help_viewer(const QString& installed, const Roots& roots);

}  // namespace pondera
