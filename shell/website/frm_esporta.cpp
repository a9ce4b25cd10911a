#include "shell/website/frm_esporta.h"

#include <QtWidgets>

#include "base/roots.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Export Website"_s;
constexpr int kPathWidth = 420;

}  // namespace

Frm_Esporta::Frm_Esporta(Workbench& workbench, const QString& folder)
    : QDialog(workbench.window()),
      workbench_(workbench),
      to_folder_(new QRadioButton(u"&Folder"_s)),
      to_zip_(new QRadioButton(u"&ZIP file"_s)),
      path_(new QLineEdit(QDir::toNativeSeparators(folder))),
      note_(new QLabel) {
    setObjectName(u"Frm_Esporta"_s);
    setWindowTitle(kTitle);
    to_folder_->setObjectName(u"optFolder"_s);
    to_folder_->setChecked(true);
    to_zip_->setObjectName(u"optZip"_s);
    path_->setObjectName(u"txtPath"_s);
    path_->setMinimumWidth(kPathWidth);
    note_->setObjectName(u"note"_s);
    note_->setProperty("note", true);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMinimumHeight(2 * note_->fontMetrics().lineSpacing());
    note_->setAlignment(Qt::AlignTop);
    auto* browse = new QPushButton(u"&Browse..."_s);
    browse->setObjectName(u"cmdBrowse"_s);
    browse->setAutoDefault(false);
    auto* path_label = new QLabel(u"&Where to"_s);
    path_label->setBuddy(path_);
    connect(to_zip_, &QRadioButton::toggled, this, &Frm_Esporta::change_form);
    connect(path_, &QLineEdit::textChanged, this, &Frm_Esporta::show_place);
    connect(browse, &QPushButton::clicked, this, &Frm_Esporta::browse);

    auto* forms = new QHBoxLayout;
    forms->addWidget(new QLabel(u"Export \"%1\" as"_s.arg(workbench.website())));
    forms->addWidget(to_folder_);
    forms->addWidget(to_zip_);
    forms->addStretch();
    auto* path = new QHBoxLayout;
    path->addWidget(path_, 1);
    path->addWidget(browse);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addLayout(forms);
    layout->addSpacing(6);
    layout->addWidget(path_label);
    layout->addLayout(path);
    layout->addWidget(note_);
    layout->addSpacing(8);
    layout->addWidget(form_buttons(*this, [&workbench] {
        workbench.show_help({u"/_HELP/_6_File Export.htm"_s, u"Help - Export Website"_s});
    }));
    show_place();
    to_folder_->setFocus();
}

ExportForm Frm_Esporta::form() const {
    return to_zip_->isChecked() ? ExportForm::kZip : ExportForm::kFolder;
}

QString Frm_Esporta::place() const {
    return QDir::fromNativeSeparators(path_->text().trimmed());
}

void Frm_Esporta::change_form() {
    const QString path = place();
    const QString other =
        form() == ExportForm::kZip ? QDir(path).filePath(workbench_.website() + u".zip"_s) : QFileInfo(path).path();
    path_->setText(QDir::toNativeSeparators(other));
    show_place();
}

void Frm_Esporta::browse() {
    if (form() == ExportForm::kFolder) {
        if (const auto chosen = workbench_.prompts().choose_folder(kTitle, place())) path_->setText(*chosen);
        return;
    }
    const auto chosen = workbench_.prompts().choose_new_file({kTitle, place(), {u"ZIP files (*.zip)"_s}});
    if (!chosen) return;
    path_->setText(*chosen);
    agreed_ = *chosen;
}

void Frm_Esporta::show_place() {
    const auto plan = plan_export(workbench_.roots(), workbench_.website(), form(), place());
    const QString what = form() == ExportForm::kZip ? u"The ZIP file will be %1"_s : u"The files go into %1"_s;
    note_->setText(plan ? what.arg(plan->place) : QString());
}

void Frm_Esporta::accept() {
    const auto plan = plan_export(workbench_.roots(), workbench_.website(), form(), place());
    if (!plan) {
        workbench_.prompts().tell(plan.error());
        path_->setFocus();
        return;
    }
    const QString question = plan->place == agreed_ ? QString() : question_of_export(*plan);
    if (!question.isEmpty() && !workbench_.prompts().yes(question)) return;
    plan_ = *plan;
    QDialog::accept();
}

}  // namespace pondera
