#pragma once

#include "workbench/command.h"

class QDialog;
class QDialogButtonBox;

namespace pondera {

class Workbench;

/// The buttons of a form: OK (the default, runs the form's accept), Cancel and Help, which opens `help`.
QDialogButtonBox* form_buttons(QDialog& form, Workbench& workbench, const Help& help);

}  // namespace pondera
