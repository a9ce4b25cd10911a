#include "shell/website/frm_nuovo.h"

#include <QtWidgets>

#include "site/name_rules.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

Frm_Nuovo::Frm_Nuovo(Workbench& workbench) : QDialog(workbench.window()), workbench_(workbench), name_(new QLineEdit) {
    setObjectName(u"Frm_Nuovo"_s);
    setWindowTitle(u"New Website"_s);
    name_->setObjectName(u"txtName"_s);
    name_->setMinimumWidth(360);
    auto* label = new QLabel(u"&Type the name of the new Website"_s);
    label->setBuddy(name_);
    auto* note = new QLabel(u"Letters and digits without spaces: the name becomes part of the Website's address."_s);
    note->setProperty("note", true);
    note->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(name_);
    layout->addWidget(note);
    layout->addSpacing(8);
    layout->addWidget(form_buttons(*this, [&workbench] {
        workbench.show_help({u"/_HELP/_6_File New Proj.htm"_s, u"Help - New Website"_s});
    }));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString Frm_Nuovo::name() const {
    return name_->text();
}

void Frm_Nuovo::accept() {
    if (const auto refusal = refusal_of_website_name(name())) {
        workbench_.prompts().tell(*refusal);
        name_->setFocus();
        name_->selectAll();
        return;
    }
    QDialog::accept();
}

}  // namespace pondera
