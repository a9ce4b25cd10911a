#include "shell/frm_update.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {
constexpr auto kMakersSite = "https://www.pondera.example/"_L1;
}

frmUpdate::frmUpdate(QWidget* parent) : QDialog(parent) {
    setObjectName("frmUpdate"_L1);
    setWindowTitle(u"Pondera"_s);

    auto* text = new QLabel(u"  Connect to site:\nThe Pondera vesion needs to be updated."_s);
    text->setObjectName("lblMessage"_L1);
    text->setTextFormat(Qt::PlainText);

    auto* link = new QLabel(u"Click here to go to the Website: <a href=\"%1\">%1</a>"_s.arg(kMakersSite));
    link->setObjectName("lblLink"_L1);
    link->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link->setOpenExternalLinks(true);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKButton"_L1);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(14);
    layout->addWidget(text);
    layout->addWidget(link);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

}  // namespace pondera
