#include "shell/qt_prompts.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSignSize{40, 40};

QIcon message_sign(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::kNone:
            return {};
        case MessageIcon::kInformation:
            return QIcon(u":/look/information.svg"_s);
        case MessageIcon::kQuestion:
            return QIcon(u":/look/question.svg"_s);
        case MessageIcon::kExclamation:
            return QIcon(u":/look/exclamation.svg"_s);
        case MessageIcon::kCritical:
            return QIcon(u":/look/critical.svg"_s);
    }
    return {};
}

/// The largest size with which a form and its title bar are on the screen.
QSize room_for(const QDialog& form) {
    return form.screen()->availableSize() - QSize(0, form.style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

QPushButton* add_button(QMessageBox& box, Answer answer) {
    switch (answer) {
        case Answer::kOk:
            return box.addButton(QMessageBox::Ok);
        case Answer::kCancel:
            return box.addButton(QMessageBox::Cancel);
        case Answer::kYes:
            return box.addButton(QMessageBox::Yes);
        case Answer::kNo:
            return box.addButton(QMessageBox::No);
        case Answer::kSave:
            return box.addButton(QMessageBox::Save);
        case Answer::kDiscard:
            return box.addButton(QMessageBox::Discard);
        case Answer::kOverwrite:
            return box.addButton(u"&Overwrite"_s, QMessageBox::AcceptRole);
        case Answer::kReload:
            return box.addButton(u"&Reload"_s, QMessageBox::DestructiveRole);
    }
    return nullptr;
}

Answer answer_of_escape(const QList<Answer>& answers) {
    if (answers.contains(Answer::kCancel)) return Answer::kCancel;
    if (answers.contains(Answer::kNo)) return Answer::kNo;
    return answers.first();
}

}  // namespace

QWidget* QtPrompts::parent() const {
    QWidget* active = QApplication::activeModalWidget();
    return active != nullptr ? active : window_.data();
}

Answer QtPrompts::message(const Message& message) {
    QMessageBox box(parent());
    box.setObjectName("message_box"_L1);
    box.setWindowTitle(message.title.isEmpty() ? u"Pondera"_s : message.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(message.text);
    box.setIconPixmap(message_sign(message.icon).pixmap(kSignSize, box.devicePixelRatioF()));
    box.layout()->setContentsMargins(20, 20, 20, 16);

    QHash<QAbstractButton*, Answer> answers;
    for (const Answer answer : message.answers) answers.insert(add_button(box, answer), answer);
    const Answer escape = answer_of_escape(message.answers);
    box.setDefaultButton(qobject_cast<QPushButton*>(answers.key(message.answers.first())));
    box.setEscapeButton(answers.key(escape));
    box.exec();
    return answers.value(box.clickedButton(), escape);
}

bool QtPrompts::run(QDialog& form) {
    if (form.parentWidget() == nullptr && parent() != nullptr) form.setParent(parent(), form.windowFlags());
    if (form.testAttribute(Qt::WA_Resized)) form.resize(form.size().boundedTo(room_for(form)));
    return form.exec() == QDialog::Accepted;
}

std::optional<QString> QtPrompts::choose_file(const FileQuestion& question) {
    const QString path =
        QFileDialog::getOpenFileName(parent(), question.title, question.start_folder, question.filters.join(u";;"_s));
    return path.isEmpty() ? std::nullopt : std::optional(QDir::toNativeSeparators(path));
}

std::optional<QString> QtPrompts::choose_new_file(const FileQuestion& question) {
    const QString path =
        QFileDialog::getSaveFileName(parent(), question.title, question.start_folder, question.filters.join(u";;"_s));
    return path.isEmpty() ? std::nullopt : std::optional(QDir::toNativeSeparators(path));
}

std::optional<QString> QtPrompts::choose_folder(const QString& title, const QString& start_folder) {
    const QString path = QFileDialog::getExistingDirectory(parent(), title, start_folder);
    return path.isEmpty() ? std::nullopt : std::optional(QDir::toNativeSeparators(path));
}

std::optional<QColor> QtPrompts::choose_colour(const QString& title, const QColor& initial) {
    QColorDialog dialog(initial, parent());
    dialog.setWindowTitle(title);
    // Only Qt's own dialog can have a Help button.
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>(); buttons != nullptr && show_help_) {
        QPushButton* help = buttons->addButton(QDialogButtonBox::Help);
        help->setObjectName("HelpButton"_L1);
        help->setAutoDefault(false);
        QObject::connect(buttons, &QDialogButtonBox::helpRequested, &dialog, show_help_);
    }
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.selectedColor()) : std::nullopt;
}

}  // namespace pondera
