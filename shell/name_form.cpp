#include "shell/name_form.h"

#include <QtWidgets>

#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

NameForm::NameForm(Workbench& workbench, const NameTexts& texts, Refusal refusal)
    : QDialog(workbench.window()),
      workbench_(workbench),
      refusal_(std::move(refusal)),
      name_(new QLineEdit(texts.name)) {
    setObjectName(texts.form);
    setWindowTitle(texts.title);
    name_->setObjectName(u"txtName"_s);
    name_->setMinimumWidth(360);
    name_->selectAll();
    auto* label = new QLabel(texts.prompt);
    label->setBuddy(name_);
    auto* note = new QLabel(texts.note);
    note->setProperty("note", true);
    note->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(name_);
    layout->addWidget(note);
    layout->addSpacing(8);
    layout->addWidget(form_buttons(*this, [&workbench, help = texts.help] { workbench.show_help(help); }));
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString NameForm::name() const {
    return name_->text();
}

void NameForm::accept() {
    if (const auto refusal = refusal_(name())) {
        workbench_.prompts().tell(*refusal);
        name_->setFocus();
        name_->selectAll();
        return;
    }
    QDialog::accept();
}

}  // namespace pondera
