#include "workbench/form_buttons.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

QDialogButtonBox* form_buttons(QDialog& form, const std::function<void()>& show_help) {
    // In the form from the first: only there a default button is remembered when the focus goes to another one.
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, &form);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"OKButton"_s);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"CancelButton"_s);
    buttons->button(QDialogButtonBox::Help)->setObjectName(u"HelpButton"_s);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &form, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &form, &QDialog::reject);
    QObject::connect(buttons, &QDialogButtonBox::helpRequested, &form, show_help);
    return buttons;
}

}  // namespace pondera
