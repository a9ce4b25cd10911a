#pragma once

#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;

namespace pondera {

/// A line for a password; the button in it shows the password until it is clicked again.
[[nodiscard]] QLineEdit* password_line(const QString& name);

/// A text that wraps, in the smaller type of notes.
[[nodiscard]] QLabel* note_label(const QString& name, const QString& text = {});

/// A text of one line that never widens its window.
[[nodiscard]] QLabel* narrow_label(const QString& name);

/// A button that Enter presses while the focus is on it, and never from another field.
[[nodiscard]] QPushButton* plain_button(const QString& name, const QString& caption);

}  // namespace pondera
