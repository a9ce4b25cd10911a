#include "elements/image/frm_cancella_imm.h"

#include <QtWidgets>

#include "base/files.h"
#include "elements/image/picture_preview.h"
#include "elements/image/picture_probe.h"
#include "site/website_files.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostNames = 5;
const QString kStillUsed = u"Still used"_s;
constexpr int kLongestName = 48;

struct FolderChoice {
    QLatin1StringView name;
    QLatin1StringView caption;
    QLatin1StringView folder;  ///< in the Website; empty for all
    QLatin1StringView picker;
};

constexpr std::array kFolders{
    FolderChoice{"option_pictures"_L1, "&Pictures"_L1, "media/img"_L1, "Selct Image"_L1},
    FolderChoice{"option_video"_L1, "&Video"_L1, "media/video"_L1, "Select Video"_L1},
    FolderChoice{"option_audio"_L1, "&Audio"_L1, "media/audio"_L1, "Select Audio"_L1},
    FolderChoice{"option_any"_L1, "A&ny file"_L1, ""_L1, "Delete File"_L1},
};

QStringList picker_filters(QLatin1StringView folder) {
    if (folder == "media/img"_L1) return picture_filters();
    if (!folder.isEmpty()) return {u"All Files (*)"_s};
    return {u"zip (*.zip)"_s,
            u"exe (*.exe)"_s,
            u"Bitmap file format (*.bmp)"_s,
            u"Graphic file format (*.jpg *.dwt)"_s,
            u"File Mp3 (*.mp3)"_s,
            u"File Video MPEG(*.mpeg)"_s,
            u"File Audio Wave(*.wav)"_s,
            u"File Video (*.avi *.mov)"_s,
            u"All Files (*)"_s};
}

/// The first few of some names: "Trips, Town and 3 more".
QString some_of(const QStringList& names, const QString& separator = u", "_s) {
    const auto more = names.size() - kMostNames;
    return more > 0 ? u"%1 and %2 more"_s.arg(names.first(kMostNames).join(separator)).arg(more)
                    : names.join(separator);
}

/// A file's name that a line has room for, without its middle where it is too long.
QString short_name(const QString& file) {
    const QString name = QFileInfo(file).fileName();
    return name.size() <= kLongestName ? name
                                       : name.first(kLongestName / 2) + u"..."_s + name.last(kLongestName / 2 - 3);
}

QString deletion_question(const QStringList& files) {
    const QString what =
        files.size() == 1 ? QFileInfo(files.first()).fileName() : u"these %1 files"_s.arg(files.size());
    return u"Are you sure you want to definitely delete %1 ?\nThe deletion will be IRREVERSIBLE!"_s.arg(what);
}

QString fault_text(const FileError& error) {
    switch (error.number) {
        case FaultNumber::kPermissionDenied:
            return u"Access denied."_s;
        case FaultNumber::kPathNotFound:
            return u"The file is not there any more."_s;
        default:
            return error.reason;
    }
}

QLabel* wrapping_label(const QString& name, int lines) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setMinimumHeight(label->fontMetrics().lineSpacing() * lines);
    return label;
}

}  // namespace

Frm_Cancella_Imm::Frm_Cancella_Imm(Workbench& workbench, FileUsage usage)
    : QDialog(workbench.window()),
      workbench_(workbench),
      usage_(std::move(usage)),
      folders_(new QButtonGroup(this)),
      list_(new QListWidget),
      unused_only_(new QCheckBox(u"&Unused files only"_s)),
      preview_(new PicturePreview(u"No preview"_s)),
      file_(wrapping_label(u"file"_s, 1)),
      users_(wrapping_label(u"users"_s, 3)) {
    setObjectName("Frm_Cancella_Imm"_L1);
    setWindowTitle(u"Delete File"_s);
    list_->setObjectName("list"_L1);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setMinimumWidth(260);
    unused_only_->setObjectName("unused_only"_L1);
    unused_only_->setEnabled(usage_.complete());
    preview_->setObjectName("preview"_L1);
    preview_->setAcceptDrops(false);
    auto* browse_button = new QPushButton(u"&Browse..."_s);
    browse_button->setObjectName("choose_file"_L1);
    browse_button->setAutoDefault(false);

    auto* buttons = form_buttons(*this, [&workbench] {
        workbench.show_help({u"/_HELP/_6_Mod 01.htm"_s, u"Help - Delete File"_s});
    });
    buttons->button(QDialogButtonBox::Ok)->setText(u"&Delete"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"&Close"_s);

    auto* options = new QHBoxLayout;
    for (const FolderChoice& choice : kFolders) {
        auto* option = new QRadioButton(choice.caption);
        option->setObjectName(choice.name);
        folders_->addButton(option, static_cast<int>(&choice - kFolders.data()));
        options->addWidget(option);
    }
    folders_->button(0)->setChecked(true);
    options->addStretch();
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addLayout(options, 0, 0, 1, 3);
    layout->addWidget(list_, 1, 0, 3, 2);
    layout->addWidget(preview_, 1, 2);
    layout->addWidget(file_, 2, 2);
    layout->addWidget(users_, 3, 2);
    layout->addWidget(unused_only_, 4, 0);
    layout->addWidget(browse_button, 4, 1, Qt::AlignRight);
    layout->addWidget(buttons, 5, 0, 1, 3);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(0, 1);

    connect(folders_, &QButtonGroup::idClicked, this, &Frm_Cancella_Imm::fill_list);
    connect(unused_only_, &QCheckBox::toggled, this, &Frm_Cancella_Imm::fill_list);
    connect(list_, &QListWidget::itemSelectionChanged, this, [this] {
        if (!list_->selectedItems().isEmpty()) picked_.clear();
        show_choice();
    });
    connect(browse_button, &QPushButton::clicked, this, &Frm_Cancella_Imm::browse);
    fill_list();
    list_->setFocus();
}

void Frm_Cancella_Imm::fill_list() {
    const QString folder = kFolders.at(folders_->checkedId()).folder;
    picked_.clear();
    list_->clear();
    for (const QString& file : deletable_files(workbench_.website_folder(), folder)) {
        if (unused_only_->isChecked() && !usage_.users_of(file).isEmpty()) continue;
        auto* item = new QListWidgetItem(folder.isEmpty() ? file : QFileInfo(file).fileName(), list_);
        item->setData(Qt::UserRole, file);
    }
    show_choice();
}

void Frm_Cancella_Imm::browse() {
    const FolderChoice& choice = kFolders.at(folders_->checkedId());
    const QDir website(workbench_.website_folder());
    const auto file = workbench_.prompts().choose_file(
        {choice.picker, website.filePath(choice.folder), picker_filters(choice.folder)});
    if (!file) return;
    list_->clearSelection();
    picked_ = *file;
    const QString relative = website.relativeFilePath(*file);
    for (int row = 0; row < list_->count(); ++row)
        if (list_->item(row)->data(Qt::UserRole) == relative) list_->setCurrentRow(row);
    show_choice();
}

QStringList Frm_Cancella_Imm::chosen_files() const {
    if (!picked_.isEmpty()) return {picked_};
    QStringList files;
    for (int row = 0; row < list_->count(); ++row) {
        const QListWidgetItem* item = list_->item(row);
        if (item->isSelected())
            files += QDir(workbench_.website_folder()).filePath(item->data(Qt::UserRole).toString());
    }
    return files;
}

void Frm_Cancella_Imm::show_choice() {
    const QStringList files = chosen_files();
    const QFileInfo file(files.size() == 1 ? files.first() : QString());
    const auto picture = probe_picture(file.filePath(), preview_->room());
    if (picture)
        preview_->show_picture(picture->preview);
    else
        preview_->show_hint();

    QString text = files.isEmpty() ? QString() : u"%1 files"_s.arg(files.size());
    if (files.size() == 1) text = short_name(file.filePath()) + u", "_s + locale().formattedDataSize(file.size());
    if (picture) text += u", %1 × %2 pixels"_s.arg(picture->size.width()).arg(picture->size.height());
    file_->setText(text);
    users_->setText(files.isEmpty() ? QString() : usage_text(files));
    QFont font = file_->font();
    font.setBold(users_->text().startsWith(kStillUsed));
    users_->setFont(font);
}

QString Frm_Cancella_Imm::usage_text(const QStringList& files) const {
    const QDir website(workbench_.website_folder());
    QStringList users;
    QStringList used;
    for (const QString& file : files) {
        const QStringList users_of_file = usage_.users_of(website.relativeFilePath(file));
        if (!users_of_file.isEmpty()) used += short_name(file);
        users += users_of_file;
    }
    if (used.isEmpty()) return usage_.complete() ? u"Not used in the Website."_s : u"It is not known who uses it."_s;
    users.removeDuplicates();
    if (files.size() == 1) return kStillUsed + u" by: %1."_s.arg(some_of(users));
    return kStillUsed + u": %1. By: %2."_s.arg(some_of(used), some_of(users));
}

void Frm_Cancella_Imm::accept() {
    const QStringList files = chosen_files();
    if (files.isEmpty()) return workbench_.prompts().tell(u"Insert all required data"_s);
    for (const QString& file : files) {
        if (!QFileInfo(file).isFile())
            return workbench_.prompts().tell(u"The file \"%1\" does not exist."_s.arg(QFileInfo(file).fileName()));
        if (const auto refusal = refusal_of_file_deletion(file, workbench_.website_folder()))
            return workbench_.prompts().tell(*refusal);
    }
    ask_and_delete(files);
}

void Frm_Cancella_Imm::ask_and_delete(const QStringList& files) {
    const Message question{
        deletion_question(files), MessageIcon::kExclamation, {Answer::kNo, Answer::kYes}, u"Delete File"_s};
    if (workbench_.prompts().message(question) != Answer::kYes) return;

    QStringList failures;
    for (const QString& file : files) {
        const auto removed = remove_file(file);
        if (!removed) failures += QFileInfo(file).fileName() + u": "_s + fault_text(removed.error());
        has_deleted_ = has_deleted_ || removed;
    }
    const int row = list_->currentRow();
    fill_list();
    list_->setCurrentRow(qMin(row, list_->count() - 1), QItemSelectionModel::NoUpdate);
    if (!failures.isEmpty())
        return workbench_.prompts().tell(u"Could not be deleted:\n%1"_s.arg(some_of(failures, u"\n"_s)),
                                         MessageIcon::kCritical);
    workbench_.prompts().tell(
        files.size() == 1 ? u"File successfully deleted."_s : u"%1 files successfully deleted."_s.arg(files.size()),
        MessageIcon::kInformation);
}

}  // namespace pondera
