#include "elements/image/frm_inserisci_imm.h"

#include <QtWidgets>

#include "elements/image/picture_preview.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

Frm_Inserisci_Imm::Frm_Inserisci_Imm(PictureUse use, Prompts& prompts,
                                     const std::function<void(const Help&)>& show_help, QWidget* parent)
    : QDialog(parent),
      use_(std::move(use)),
      prompts_(prompts),
      preview_(new PicturePreview),
      path_(new QLineEdit),
      size_(new QLabel),
      picture_(std::unexpected(QString())) {
    setObjectName("Frm_Inserisci_Imm"_L1);
    setWindowTitle(use_.caption);
    preview_->setObjectName("preview"_L1);
    path_->setObjectName("picture_path"_L1);
    size_->setObjectName("picture_size"_L1);
    size_->setAlignment(Qt::AlignCenter);

    auto* path_label = new QLabel(u"&Picture:"_s);
    path_label->setBuddy(path_);
    auto* choose_button = new QPushButton(u"&Browse..."_s);
    choose_button->setObjectName("choose_picture"_L1);
    choose_button->setAutoDefault(false);

    auto* buttons = form_buttons(*this, [this, show_help] { show_help(use_.help); });

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(path_label, 0, 0);
    layout->addWidget(path_, 0, 1);
    layout->addWidget(choose_button, 0, 2);
    layout->addWidget(preview_, 1, 0, 1, 3, Qt::AlignCenter);
    layout->addWidget(size_, 2, 0, 1, 3);
    layout->addWidget(buttons, 3, 0, 1, 3);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(choose_button, &QPushButton::clicked, this, &Frm_Inserisci_Imm::choose);
    connect(path_, &QLineEdit::textChanged, this, &Frm_Inserisci_Imm::probe);
    connect(preview_, &PicturePreview::fileDropped, this, &Frm_Inserisci_Imm::show_file);
    probe();
}

void Frm_Inserisci_Imm::choose() {
    const QString current = QFileInfo(path_->text()).absolutePath();
    const QString folder = path_->text().isEmpty() ? use_.start_folder : current;
    if (const auto file = prompts_.choose_file({use_.picker_title, folder, picture_filters()})) show_file(*file);
}

void Frm_Inserisci_Imm::show_file(const QString& path) {
    path_->setText(QDir::toNativeSeparators(path));
}

void Frm_Inserisci_Imm::probe() {
    picture_ = probe_picture(path_->text().trimmed(), preview_->room());
    if (picture_) {
        preview_->show_picture(picture_->preview);
        size_->setText(u"%1 × %2 pixels"_s.arg(picture_->size.width()).arg(picture_->size.height()));
    } else {
        preview_->show_hint();
        size_->setText(u" "_s);
    }
}

void Frm_Inserisci_Imm::accept() {
    probe();
    if (picture_)
        QDialog::accept();
    else
        prompts_.tell(picture_.error());
}

}  // namespace pondera
