#include "publish/folder/frm_pubblica_cartella.h"

#include <QtWidgets>

#include "publish/folder/folder_summary.h"
#include "workbench/bar_steps.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"Publish to a Folder"_s;
constexpr auto kFolderSetting = "Publish/Folder of "_L1;
constexpr int kWidth = 520;

QLabel* text_label(const QString& name, int lines) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
    return label;
}

/// There are several disks: it is told which one is full.
QString fault_in_folder(const FileError& fault, const QString& folder) {
    const bool is_full = fault.number == FaultNumber::kDiskFull || fault.number == FaultNumber::kWriteDiskFull;
    if (!is_full || !fault.path.startsWith(QDir::toNativeSeparators(folder))) return fault_sentence(fault);
    return u"There is no room left in %1."_s.arg(QDir::toNativeSeparators(folder));
}

}  // namespace

Frm_Pubblica_Cartella::Frm_Pubblica_Cartella(Workbench& workbench, Prepare prepare)
    : QDialog(workbench.window()),
      workbench_(workbench),
      prepare_(std::move(prepare)),
      path_(new QLineEdit(workbench.settings().value(kFolderSetting + workbench.website()).toString())),
      note_(text_label(u"note"_s, 2)),
      changed_(new QRadioButton(u"&Only what changed since the last time"_s)),
      remove_(new QCheckBox(u"&Remove what I deleted from the Website"_s)),
      bar_(new QProgressBar),
      state_(text_label(u"lblProgress"_s, 2)),
      link_(new QLabel) {
    setObjectName(u"Frm_Pubblica_Cartella"_s);
    setWindowTitle(kTitle);
    build();
    show_place();
}

void Frm_Pubblica_Cartella::build() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(fields());
    layout->addWidget(result());
    layout->addStretch();
    auto* buttons = form_buttons(*this, [this] {
        workbench_.show_help({u"/_HELP/_6_File Publish Folder.htm"_s, u"Help - Publish to a Folder"_s});
    });
    publish_ = buttons->button(QDialogButtonBox::Ok);
    publish_->setText(u"&Publish"_s);
    close_ = buttons->button(QDialogButtonBox::Cancel);
    layout->addWidget(buttons);
}

QWidget* Frm_Pubblica_Cartella::fields() {
    path_->setObjectName(u"txtPath"_s);
    path_->setPlaceholderText(u"A memory stick, a drive of your network..."_s);
    connect(path_, &QLineEdit::textChanged, this, &Frm_Pubblica_Cartella::show_place);
    auto* browse = new QPushButton(u"&Browse..."_s);
    browse->setObjectName(u"cmdBrowse"_s);
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &Frm_Pubblica_Cartella::browse);
    auto* label = new QLabel(u"&Folder that gets the Website \"%1\""_s.arg(workbench_.website()));
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(path_);
    note_->setProperty("note", true);
    changed_->setObjectName(u"optChanged"_s);
    changed_->setChecked(true);
    auto* whole = new QRadioButton(u"The &whole Website"_s);
    whole->setObjectName(u"optWhole"_s);
    remove_->setObjectName(u"chkRemove"_s);
    remove_->setChecked(true);

    auto* line = new QHBoxLayout;
    line->addWidget(path_, 1);
    line->addWidget(browse);
    fields_ = new QWidget;
    auto* layout = new QVBoxLayout(fields_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addLayout(line);
    layout->addWidget(note_);
    for (QWidget* choice :
         {static_cast<QWidget*>(changed_), static_cast<QWidget*>(whole), static_cast<QWidget*>(remove_)})
        layout->addWidget(choice, 0, Qt::AlignLeft);
    fields_->setMinimumWidth(kWidth);
    return fields_;
}

QWidget* Frm_Pubblica_Cartella::result() {
    bar_->setObjectName(u"ProgressBar1"_s);
    bar_->setAccessibleName(u"Progress of the publication"_s);
    bar_->setTextVisible(false);
    bar_->setRange(0, 1);
    link_->setObjectName(u"lblLink"_s);
    link_->setTextInteractionFlags(Qt::TextBrowserInteraction);
    link_->setOpenExternalLinks(true);
    link_->setMinimumHeight(link_->fontMetrics().lineSpacing());
    auto* result = new QWidget;
    auto* layout = new QVBoxLayout(result);
    layout->setContentsMargins(0, 6, 0, 6);
    layout->setSpacing(8);
    layout->addWidget(bar_);
    layout->addWidget(state_);
    layout->addWidget(link_);
    return result;
}

QString Frm_Pubblica_Cartella::folder() const {
    return QDir::fromNativeSeparators(path_->text().trimmed());
}

void Frm_Pubblica_Cartella::browse() {
    if (const auto chosen = workbench_.prompts().choose_folder(kTitle, folder())) path_->setText(*chosen);
}

void Frm_Pubblica_Cartella::show_place() {
    const bool usable = refusal_of_folder(workbench_.roots(), workbench_.website(), folder()).isEmpty();
    note_->setText(usable ? u"The Website will be in %1"_s.arg(
                                QDir::toNativeSeparators(QDir(folder()).filePath(workbench_.website())))
                          : QString());
}

bool Frm_Pubblica_Cartella::may_publish(const QString& folder) {
    const QString refusal = refusal_of_folder(workbench_.roots(), workbench_.website(), folder);
    if (!refusal.isEmpty()) {
        workbench_.prompts().tell(refusal);
        path_->setFocus();
        return false;
    }
    const QString question = question_of_folder(workbench_.roots(), workbench_.website(), folder);
    return question.isEmpty() || workbench_.prompts().really(question);
}

void Frm_Pubblica_Cartella::accept() {
    const QString to = folder();
    if (running_ || !may_publish(to) || !prepare_()) return;
    show_place();  // the drive may have come after its name was typed
    workbench_.settings().setValue(kFolderSetting + workbench_.website(), QDir::toNativeSeparators(to));
    publish(to);
}

void Frm_Pubblica_Cartella::reject() {
    cancelled_ = true;
    if (!running_) QDialog::reject();
}

void Frm_Pubblica_Cartella::publish(const QString& folder) {
    set_running(true);
    const auto mode = changed_->isChecked() ? PublicationMode::kPartial : PublicationMode::kTotal;
    const auto published = publish_to_folder(workbench_.roots(), workbench_.website(), folder, mode,
                                             remove_->isChecked(), steps_of_bar(*bar_, cancelled_));
    set_running(false);
    show_result(folder, published);
}

void Frm_Pubblica_Cartella::show_result(const QString& folder, const FileResult<FolderPublication>& published) {
    const bool whole = published && !published->cancelled;
    (whole ? close_ : publish_)->setFocus();
    if (!published) {
        bar_->reset();
        state_->setText(u"Not everything was published. Publish again to go on from here."_s);
        return workbench_.prompts().tell(
            u"The Website was not published.\n\n"_s + fault_in_folder(published.error(), folder),
            MessageIcon::kCritical);
    }
    state_->setText(folder_summary(*published));
    if (!whole) return bar_->reset();
    bar_->setValue(bar_->maximum());
    const QString home = QDir(folder).filePath(workbench_.website() + u"/index.htm"_s);
    const QString lead = u"Click here to go to the Website: "_s;
    const QFontMetrics letters = link_->fontMetrics();
    const QString shown =
        letters.elidedText(QDir::toNativeSeparators(home), Qt::ElideMiddle, kWidth - letters.horizontalAdvance(lead));
    link_->setText(u"%1<a href=\"%2\">%3</a>"_s.arg(
        lead, QUrl::fromLocalFile(home).toString(QUrl::FullyEncoded).toHtmlEscaped(), shown.toHtmlEscaped()));
    close_->setText(u"Close"_s);
    if (!published->refused.isEmpty())
        workbench_.prompts().tell(
            u"The drive does not take these files. All others are in order.\n\n"_s + refused_files(*published),
            MessageIcon::kExclamation);
}

void Frm_Pubblica_Cartella::set_running(bool running) {
    running_ = running;
    cancelled_ = false;
    fields_->setEnabled(!running);
    publish_->setEnabled(!running);
    if (!running) return;
    close_->setText(u"Cancel"_s);
    close_->setFocus();
    state_->setText(u"Publishing..."_s);
    link_->clear();
    QCoreApplication::processEvents();
}

}  // namespace pondera
