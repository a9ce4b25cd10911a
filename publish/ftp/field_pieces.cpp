#include "publish/ftp/field_pieces.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

class PlainButton : public QPushButton {
  public:
    using QPushButton::QPushButton;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
        QPushButton::keyPressEvent(event);
    }
};

}  // namespace

QLineEdit* password_line(const QString& name) {
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setEchoMode(QLineEdit::Password);
    QAction* show = line->addAction(QIcon(u":/icons/eye.svg"_s), QLineEdit::TrailingPosition);
    show->setObjectName(u"show_"_s + name);
    show->setToolTip(u"Show the password"_s);
    show->setCheckable(true);
    QObject::connect(show, &QAction::toggled, line,
                     [line](bool on) { line->setEchoMode(on ? QLineEdit::Normal : QLineEdit::Password); });
    return line;
}

QLabel* note_label(const QString& name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setProperty("note", true);
    QSizePolicy policy = label->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Expanding);  // else forms give it half of a line
    label->setSizePolicy(policy);
    return label;
}

QLabel* narrow_label(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QPushButton* plain_button(const QString& name, const QString& caption) {
    auto* button = new PlainButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

}  // namespace pondera
