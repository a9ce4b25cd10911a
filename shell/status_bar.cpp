#include "shell/status_bar.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QLabel* panel(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}

constexpr int kPaintEveryMs = 50;

}  // namespace

StatusBar::StatusBar(QWidget* parent)
    : QStatusBar(parent),
      page_(panel(u"panel_page"_s)),
      modified_(panel(u"panel_modified"_s)),
      what_(panel(u"panel_what"_s)),
      state_(panel(u"panel_state"_s)),
      bar_(new QProgressBar),
      cancel_(new QToolButton) {
    setObjectName("StatusBar1"_L1);
    bar_->setObjectName("ProgressBar1"_L1);
    bar_->setFixedWidth(180);
    bar_->setTextVisible(false);
    cancel_->setObjectName("cmd_cancel"_L1);
    cancel_->setText(u"Cancel"_s);
    cancel_->setToolTip(u"Cancel (Esc)"_s);
    addWidget(page_);
    addWidget(modified_);
    addPermanentWidget(what_);
    addPermanentWidget(state_);
    addPermanentWidget(bar_);
    addPermanentWidget(cancel_);
    hide_work();
}

void StatusBar::show_page(const QString& label) {
    page_->setText(label);
}

void StatusBar::show_modified(bool modified) {
    modified_->setText(modified ? u"Unsaved changes"_s : QString());
}

void StatusBar::show_work(const QString& what, const QString& state, int steps, Cancelling cancelling) {
    what_->setText(what);
    state_->setText(state);
    bar_->setRange(0, steps);
    bar_->setValue(0);
    bar_->show();
    cancel_->setVisible(cancelling == Cancelling::kYes);
}

void StatusBar::show_steps(int steps) {
    bar_->setRange(0, steps);
}

void StatusBar::show_done(int done) {
    bar_->setValue(done);
}

void StatusBar::hide_work() {
    what_->clear();
    state_->clear();
    bar_->hide();
    cancel_->hide();
}

void StatusProgress::begin(const QString& what, const QString& state, int steps, Cancelling cancelling) {
    can_be_cancelled_ = cancelling == Cancelling::kYes;
    cancelled_ = false;
    if (bar_ == nullptr) return;
    bar_->show_work(what, state, steps, cancelling);
    if (can_be_cancelled_) QCoreApplication::instance()->installEventFilter(this);
    let_paint();
}

void StatusProgress::set_steps(int steps) {
    if (bar_ != nullptr) bar_->show_steps(steps);
}

void StatusProgress::advance(int done) {
    if (bar_ == nullptr) return;
    bar_->show_done(done);
    if (painted_.hasExpired(kPaintEveryMs)) let_paint();
}

void StatusProgress::end() {
    QCoreApplication::instance()->removeEventFilter(this);
    can_be_cancelled_ = false;
    if (bar_ != nullptr) bar_->hide_work();
}

bool StatusProgress::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            if (watched == &bar_->cancel_button()) {
                if (event->type() == QEvent::MouseButtonRelease) cancelled_ = true;
                return false;
            }
            return watched->isWidgetType();
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancelled_ = true;
            return watched->isWidgetType();
        case QEvent::Close:
            event->ignore();
            return true;
        case QEvent::KeyRelease:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return watched->isWidgetType();
        case QEvent::Shortcut:
            return true;
        default:
            return false;
    }
}

void StatusProgress::let_paint() {
    QCoreApplication::processEvents(can_be_cancelled_ ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    painted_.start();
}

}  // namespace pondera
