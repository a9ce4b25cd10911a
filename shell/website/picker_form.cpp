#include "shell/website/picker_form.h"

#include <QtWidgets>

#include <algorithm>
#include <array>

#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kPreviewSize{280, 210};

// A chosen picture has a frame, as its own colours would hide a mere tint.
constexpr auto kPictureStyle = R"(
QListWidget { background: #eef1f5; border: 1px solid #dfe5eb; border-radius: 5px; }
QListWidget::item { background: #ffffff; color: #26323f; border: 2px solid #dfe5eb; border-radius: 6px; padding: 8px; }
QListWidget::item:hover { border-color: #a9c8e4; }
QListWidget::item:selected { background: #d3e3f2; border-color: #1f6fb5; }
)"_L1;

/// A picture that keeps its colours when its entry is selected; a blank one where there is no such file.
QIcon preview(const QString& path) {
    QPixmap picture(path);
    if (picture.isNull()) {
        picture = QPixmap(kPreviewSize);
        picture.fill(0xeef1f5);
    }
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

}  // namespace

PickerForm::PickerForm(Workbench& workbench, const PickerTexts& texts, const QList<PickerEntry>& entries)
    : QDialog(workbench.window()),
      workbench_(workbench),
      refusal_(texts.refusal),
      list_(new QListWidget),
      about_(new QLabel(entries.isEmpty() ? texts.nothing : QString())) {
    setObjectName(texts.form);
    setWindowTitle(texts.title);
    list_->setObjectName(u"list"_s);
    list_->setMinimumSize(360, 220);
    // The entry that has the focus must not look as if it were chosen.
    list_->setStyleSheet(
        u"QListWidget { outline: 0; } QListWidget::item { padding: 5px; border: none; } "
        "QListWidget::item:!selected { background: transparent; } "
        "QListWidget::item:selected { background: palette(highlight); color: palette(highlighted-text); }"_s);
    if (texts.pictures) show_as_pictures();
    for (const PickerEntry& entry : entries) {
        auto* item = new QListWidgetItem(entry.text, list_);
        item->setData(Qt::UserRole, entry.value);
        if (texts.pictures) item->setIcon(preview(entry.picture));
    }
    list_->installEventFilter(this);
    connect(list_, &QListWidget::itemDoubleClicked, this, &PickerForm::accept);
    auto* prompt = new QLabel(texts.prompt);
    prompt->setBuddy(list_);
    about_->setObjectName(u"about"_s);
    about_->setProperty("note", true);
    about_->setTextFormat(Qt::PlainText);
    about_->setWordWrap(true);
    about_->setVisible(!about_->text().isEmpty());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(prompt);
    layout->addWidget(list_, 1);
    layout->addWidget(about_);
    layout->addWidget(form_buttons(*this, [&workbench, help = texts.help] { workbench.show_help(help); }));
}

QString PickerForm::choice() const {
    const auto chosen = list_->selectedItems();
    return chosen.isEmpty() ? QString() : chosen.first()->data(Qt::UserRole).toString();
}

void PickerForm::accept() {
    if (!choice().isEmpty()) return QDialog::accept();
    workbench_.prompts().tell(refusal_);
    list_->setFocus();
}

bool PickerForm::eventFilter(QObject* watched, QEvent* event) {
    // The first arrow key chooses the entry that has the focus; without this the only entry of a list could not be
    // reached.
    if (watched == list_ && event->type() == QEvent::KeyPress && choice().isEmpty() &&
        list_->currentItem() != nullptr) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        constexpr std::array kKeys{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home};
        if (std::ranges::find(kKeys, key) != kKeys.end()) {
            list_->currentItem()->setSelected(true);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void PickerForm::show_as_pictures() {
    list_->setViewMode(QListView::IconMode);
    list_->setMovement(QListView::Static);
    list_->setResizeMode(QListView::Adjust);
    list_->setIconSize(kPreviewSize);
    list_->setSpacing(6);
    list_->setStyleSheet(kPictureStyle);
    list_->setMinimumHeight(kPreviewSize.height() + 64);
    resize(2 * kPreviewSize.width() + 160, 0);
}

void PickerForm::show_about(const QString& text) {
    about_->setText(text);
    about_->setVisible(!text.isEmpty());
}

}  // namespace pondera
