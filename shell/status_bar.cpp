#include "shell/status_bar.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>

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
      bar_(new QProgressBar) {
    setObjectName("StatusBar1"_L1);
    bar_->setObjectName("ProgressBar1"_L1);
    bar_->setFixedWidth(180);
    bar_->setTextVisible(false);
    addWidget(page_);
    addWidget(modified_);
    addPermanentWidget(what_);
    addPermanentWidget(state_);
    addPermanentWidget(bar_);
    hide_work();
}

void StatusBar::show_page(const QString& label) {
    page_->setText(label);
}

void StatusBar::show_modified(bool modified) {
    modified_->setText(modified ? u"Unsaved changes"_s : QString());
}

void StatusBar::show_work(const QString& what, const QString& state, int steps) {
    what_->setText(what);
    state_->setText(state);
    bar_->setRange(0, steps);
    bar_->setValue(0);
    bar_->show();
}

void StatusBar::show_done(int done) {
    bar_->setValue(done);
}

void StatusBar::hide_work() {
    what_->clear();
    state_->clear();
    bar_->hide();
}

void StatusProgress::begin(const QString& what, const QString& state, int steps) {
    if (bar_ == nullptr) return;
    bar_->show_work(what, state, steps);
    let_paint();
}

void StatusProgress::advance(int done) {
    if (bar_ == nullptr) return;
    bar_->show_done(done);
    if (painted_.hasExpired(kPaintEveryMs)) let_paint();
}

void StatusProgress::end() {
    if (bar_ != nullptr) bar_->hide_work();
}

void StatusProgress::let_paint() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    painted_.start();
}

}  // namespace pondera
