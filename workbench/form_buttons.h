#pragma once

#include <functional>

class QDialog;
class QDialogButtonBox;

namespace pondera {

/// The buttons of a form: `OKButton` (the default, runs the form's accept), `CancelButton` and `HelpButton`, which
/// calls `show_help`.
QDialogButtonBox* form_buttons(QDialog& form, const std::function<void()>& show_help);

}  // namespace pondera
