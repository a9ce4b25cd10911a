#include "shell/frm_splash.h"

#include <QIcon>
#include <QPainter>
#include <QScreen>
#include <QTimer>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {
constexpr QSize kSplashSize{560, 320};
constexpr QRect kCaptionPlace{40, 260, 500, 60};  // the picture's white foot
constexpr QColor kCaptionColour{0x26, 0x32, 0x3f};
constexpr int kStartAfterMs = 700;
}  // namespace

QString start_caption() {
    return u"Pondera   VANTILE PRO  -  Web and Multimedia Editor"_s;
}

frmSplash::frmSplash(std::function<void()> start)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), start_(std::move(start)), timer_(new QTimer(this)) {
    setObjectName("frmSplash"_L1);
    setFixedSize(kSplashSize);
    move(screen()->availableGeometry().center() - rect().center());
    timer_->setObjectName("TimerStart"_L1);
    timer_->setInterval(kStartAfterMs);
    connect(timer_, &QTimer::timeout, this, &frmSplash::timer_start);
    timer_->start();
}

void frmSplash::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(rect(), QIcon(u":/pictures/splash.svg"_s).pixmap(size(), devicePixelRatioF()));
    painter.setPen(kCaptionColour);
    painter.drawText(kCaptionPlace, Qt::AlignVCenter | Qt::AlignLeft, windowTitle());
}

void frmSplash::timer_start() {
    timer_->stop();
    setWindowTitle(start_caption());
    repaint();
    start_();
    close();
}

}  // namespace pondera
