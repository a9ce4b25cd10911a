#pragma once

class QApplication;

namespace pondera {

/// Gives every window of the program the same calm look: colours, spacing, icon.
void set_look(QApplication& application);

}  // namespace pondera
