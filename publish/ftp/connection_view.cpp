#include "publish/ftp/connection_view.h"

#include <QtWidgets>

#include "publish/ftp/field_pieces.h"
#include "publish/ftp/plain_words.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kSignSize = 20;
constexpr int kStatusLines = 4;
constexpr int kHintLines = 4;

void show_sign(QLabel& label, const QString& resource) {
    label.setPixmap(resource.isEmpty() ? QPixmap()
                                       : QIcon(resource).pixmap({kSignSize, kSignSize}, label.devicePixelRatioF()));
}

QLabel* sign_label(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setFixedWidth(kSignSize + 2);
    label->setAlignment(Qt::AlignTop);
    return label;
}

}  // namespace

ConnectionView::ConnectionView(QWidget* parent)
    : QGroupBox(u"Connection"_s, parent),
      info_(new QPlainTextEdit),
      padlock_(sign_label(u"padlock"_s)),
      protection_(note_label(u"lblProtection"_s)),
      sign_(sign_label(u"hint_sign"_s)),
      hint_(note_label(u"lblHint"_s)) {
    info_->setObjectName(u"Info"_s);
    info_->setReadOnly(true);
    info_->setTabChangesFocus(true);
    info_->setAccessibleName(u"State of the connection"_s);
    info_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    info_->setMinimumHeight(info_->fontMetrics().lineSpacing() * kStatusLines + 2 * info_->frameWidth() + 8);
    hint_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    hint_->setMinimumHeight(hint_->fontMetrics().lineSpacing() * kHintLines);
    hint_->setAlignment(Qt::AlignTop);

    auto* grid = new QGridLayout(this);
    grid->setHorizontalSpacing(6);
    grid->addWidget(padlock_, 0, 0);
    grid->addWidget(protection_, 0, 1);
    grid->addWidget(info_, 1, 0, 1, 2);
    grid->addWidget(sign_, 2, 0);
    grid->addWidget(hint_, 2, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    show_no_connection();
}

void ConnectionView::show_status(const QString& status) {
    if (info_->toPlainText() != status) info_->setPlainText(status);
}

void ConnectionView::show_line(const QString& sign, const QString& words, bool bad) {
    if (protection_->text() == words) return;
    show_sign(*padlock_, sign);
    protection_->setText(words);
    protection_->setProperty("bad", bad);
    protection_->style()->polish(protection_);
}

void ConnectionView::show_protection(const LineProtection& protection) {
    show_line(protection.encrypted ? u":/icons/lock.svg"_s : u":/icons/unlock.svg"_s, protection_words(protection),
              !protection.encrypted);
}

void ConnectionView::show_no_connection() {
    show_line({}, u"Not connected"_s, false);
}

void ConnectionView::show_hint(const QString& text, Tone tone) {
    const QString sign = text.isEmpty() || tone == Tone::kPlain ? QString()
                         : tone == Tone::kGood                  ? u":/look/information.svg"_s
                                                                : u":/look/exclamation.svg"_s;
    show_sign(*sign_, sign);
    hint_->setText(text);
}

}  // namespace pondera
