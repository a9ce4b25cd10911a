#include "shell/frm_splash.h"

#include <QIcon>
#include <QPainter>
#include <QTimer>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {
constexpr QSize kSplashSize{560, 320};
constexpr int kStartAfterMs = 700;
}  // namespace

QString start_caption() {
    return u"Pondera   VANTILE PRO  -  Web and Multimedia Editor"_s;
}

frmSplash::frmSplash(std::function<void()> start)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), start_(std::move(start)), timer_(new QTimer(this)) {
    setObjectName("frmSplash"_L1);
    setFixedSize(kSplashSize);
    timer_->setObjectName("TimerStart"_L1);
    timer_->setInterval(kStartAfterMs);
    connect(timer_, &QTimer::timeout, this, &frmSplash::timer_start);
    timer_->start();
}

void frmSplash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(rect(), QIcon(u":/pictures/splash.svg"_s).pixmap(size(), devicePixelRatioF()));
}

void frmSplash::timer_start() {
    timer_->stop();
    setWindowTitle(start_caption());
    start_();
    close();
}

}  // namespace pondera
