#include "publish/connection/frm_reconnect.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextWidth = 400;

QString situation_text(frmReconnect::Situation situation, const QString& host) {
    return situation == frmReconnect::Situation::kOffline
               ? u"Pondera works off line, so it does not connect to %1."_s.arg(host)
               : u"This computer is not connected to the Internet, so %1 cannot be reached.\n\nSwitch on Wi-Fi or look "
                 "whether the network cable is plugged in, then try again."_s.arg(host);
}

}  // namespace

frmReconnect::frmReconnect(QWidget* parent, Situation situation, const QString& host) : QDialog(parent) {
    setObjectName(u"frmReconnect"_s);
    setWindowTitle(situation == Situation::kOffline ? u"Off Line"_s : u"No Connection"_s);
    auto* text = new QLabel(situation_text(situation, host));
    text->setObjectName(u"lblMessage"_s);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setMinimumWidth(kTextWidth);

    auto* buttons = new QDialogButtonBox(this);
    if (situation == Situation::kOffline) {
        add_button(*buttons, u"OKButton"_s, u"&Go On Line"_s, u"ONLINE"_s);
        add_button(*buttons, u"cmdAnnulla"_s, u"&Stay Off Line"_s, u"CANCEL"_s);
    } else {
        add_button(*buttons, u"OKButton"_s, u"&Try Again"_s, u"RETRY"_s);
        add_button(*buttons, u"cmdContinua"_s, u"Connect &Anyway"_s, u"CONTINUE"_s);
        add_button(*buttons, u"cmdCancel"_s, u"Cancel"_s, u"CANCEL"_s);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(14);
    layout->addWidget(text);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmReconnect::add_button(QDialogButtonBox& buttons, const QString& name, const QString& caption,
                              const QString& result) {
    const bool is_first = name == u"OKButton";
    auto* button = buttons.addButton(caption, is_first ? QDialogButtonBox::AcceptRole : QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setDefault(is_first);
    button->setAutoDefault(is_first);
    connect(button, &QPushButton::clicked, this, [this, result] {
        result_ = result;
        done(result == u"CANCEL" ? Rejected : Accepted);
    });
}

}  // namespace pondera
