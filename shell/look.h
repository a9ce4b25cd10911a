#pragma once

class QApplication;

namespace pondera {

/// Gives every window of the program the same calm look: colours, spacing, icon; and every page the fonts of visitors'
/// browsers.
void set_look(QApplication& application);

}  // namespace pondera
