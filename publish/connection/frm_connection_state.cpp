#include "publish/connection/frm_connection_state.h"

#include <QtWidgets>

#include "publish/connection/connection_report.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextWidth = 420;

QLabel* text_label(QDialog& form, const QString& name, const QString& text) {
    auto* label = new QLabel(text, &form);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(kTextWidth);
    label->setVisible(!text.isEmpty());
    return label;
}

}  // namespace

frmConnectionState::frmConnectionState(Workbench& workbench, CWinInetConnection& connection,
                                       const InternetFunctions& functions)
    : QDialog(workbench.window()), workbench_(workbench), connection_(connection) {
    setObjectName(u"frmConnectionState"_s);
    setWindowTitle(u"Connection State"_s);
    const ConnectionReport report = connection_report(connection, functions.IsNetworkAlive());
    auto* sentence = new QLabel(report.sentence);
    sentence->setObjectName(u"lblState"_s);
    sentence->setStyleSheet(u"font-weight: bold;"_s);
    QLabel* const advice = text_label(*this, u"lblAdvice"_s, report.advice);
    QLabel* const details = text_label(*this, u"lblDetails"_s, report.details.join(u'\n'));
    details->setTextInteractionFlags(Qt::TextSelectableByMouse);
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
    layout->addWidget(sentence);
    layout->addWidget(advice);
    layout->addWidget(details);
    layout->addWidget(off_line, 0, Qt::AlignLeft);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    buttons->button(QDialogButtonBox::Ok)->setFocus();
}

void frmConnectionState::work_off_line(bool on) {
    const ConnectionResult done = on ? connection_.SetGlobalOffline() : connection_.SetGlobalOnline();
    if (done) return;
    findChild<QCheckBox*>(u"chkOffline"_s)->setChecked(!on);
    workbench_.prompts().tell(done.error().description, MessageIcon::kCritical);
}

frmConnectionState1::frmConnectionState1(Workbench& workbench, CWinInetConnection& connection,
                                         const InternetFunctions& functions)
    : frmConnectionState(workbench, connection, functions) {
    setObjectName(u"frmConnectionState1"_s);
}

}  // namespace pondera
