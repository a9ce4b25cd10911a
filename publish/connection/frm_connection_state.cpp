#include "publish/connection/frm_connection_state.h"

#include <QtWidgets>

#include "publish/connection/connection_report.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextWidth = 420;

QLabel* text_label(QDialog& form, const QString& name) {
    auto* label = new QLabel(&form);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(kTextWidth);
    return label;
}

void show_text(QLabel& label, const QString& text) {
    label.setText(text);
    label.setVisible(!text.isEmpty());
}

}  // namespace

frmConnectionState::frmConnectionState(Workbench& workbench, CWinInetConnection& connection,
                                       const InternetFunctions& functions)
    : QDialog(workbench.window()),
      workbench_(workbench),
      connection_(connection),
      functions_(functions),
      sentence_(text_label(*this, u"lblState"_s)),
      advice_(text_label(*this, u"lblAdvice"_s)),
      details_(text_label(*this, u"lblDetails"_s)) {
    setObjectName(u"frmConnectionState"_s);
    setWindowTitle(u"Connection State"_s);
    sentence_->setStyleSheet(u"font-weight: bold;"_s);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    show_state();
    auto* off_line = new QCheckBox(u"&Work off line"_s);
    off_line->setObjectName(u"chkOffline"_s);
    off_line->setChecked(connection.IsOffline());
    connect(off_line, &QCheckBox::clicked, this, &frmConnectionState::work_off_line);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Help, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(u"OKButton"_s);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Help)->setObjectName(u"HelpButton"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this] {
        workbench_.show_help({u"/_HELP/_6_File Connection.htm"_s, u"Help - Connection State"_s});
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(12);
    for (QLabel* label : {sentence_, advice_, details_}) layout->addWidget(label);
    layout->addWidget(off_line, 0, Qt::AlignLeft);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

void frmConnectionState::show_state() {
    const ConnectionReport report = connection_report(connection_, functions_.IsNetworkAlive());
    show_text(*sentence_, report.sentence);
    show_text(*advice_, report.advice);
    show_text(*details_, report.details.join(u'\n'));
}

void frmConnectionState::work_off_line(bool on) {
    const ConnectionResult done = on ? connection_.SetGlobalOffline() : connection_.SetGlobalOnline();
    if (done) {
        if (connection_.Refresh()) show_state();
        return;
    }
    findChild<QCheckBox*>(u"chkOffline"_s)->setChecked(!on);
    workbench_.prompts().tell(done.error().description, MessageIcon::kCritical);
}

frmConnectionState1::frmConnectionState1(Workbench& workbench, CWinInetConnection& connection,
                                         const InternetFunctions& functions)
    : frmConnectionState(workbench, connection, functions) {
    setObjectName(u"frmConnectionState1"_s);
}

}  // namespace pondera
