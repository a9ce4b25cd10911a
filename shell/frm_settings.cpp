#include "shell/frm_settings.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {
constexpr auto kWizard = "Wizard"_L1;
constexpr auto kAutomaticHelp = "Automatic Help"_L1;
}  // namespace

bool wizard_at_start(const QSettings& settings) {
    return settings.value(kWizard).toString() != "0"_L1;
}

void set_wizard_at_start(QSettings& settings, bool on) {
    settings.setValue(kWizard, on ? u"1"_s : u"0"_s);
}

bool automatic_help(const QSettings& settings) {
    return settings.value(kAutomaticHelp).toString() == "1"_L1;
}

frmSettings::frmSettings(QSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      wizard_(new QCheckBox(u"Show the &3 steps at start"_s)),
      help_(new QCheckBox(u"Show the &help page of each command that is chosen"_s)) {
    setObjectName("frmSettings"_L1);
    setWindowTitle(u"Settings"_s);
    wizard_->setObjectName("chkWizard"_L1);
    wizard_->setChecked(wizard_at_start(settings));
    help_->setObjectName("chkAutomaticHelp"_L1);
    help_->setChecked(automatic_help(settings));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKButton"_L1);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelButton"_L1);
    connect(buttons, &QDialogButtonBox::accepted, this, &frmSettings::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(12);
    layout->addWidget(wizard_);
    layout->addWidget(help_);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void frmSettings::accept() {
    set_wizard_at_start(settings_, wizard_->isChecked());
    settings_.setValue(kAutomaticHelp, help_->isChecked() ? u"1"_s : u"0"_s);
    QDialog::accept();
}

}  // namespace pondera
