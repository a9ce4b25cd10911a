#include "player/setup_window/setup_window.h"

#include <QApplication>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIconSize = 64;
constexpr int kBarWidth = 420;

}  // namespace

SetupWindow::SetupWindow(QString title) : title_(std::move(title)) {
}

SetupWindow::~SetupWindow() = default;

bool SetupWindow::run_box(const QString& name, const QString& text, const QString& yes, const QString& no,
                          const QString& picture) {
    progress_.reset();
    QMessageBox box;
    box.setObjectName(name);
    box.setWindowTitle(title_);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    const QPixmap shown(picture);
    box.setIconPixmap(shown.isNull() ? QApplication::windowIcon().pixmap(kIconSize) : shown);
    QPushButton* accept = box.addButton(yes, QMessageBox::AcceptRole);
    accept->setObjectName("OKButton"_L1);
    box.setDefaultButton(accept);
    if (!no.isEmpty()) {
        QPushButton* reject = box.addButton(no, QMessageBox::RejectRole);
        reject->setObjectName("CancelButton"_L1);
        box.setEscapeButton(reject);
    }
    box.exec();
    return box.clickedButton() == accept;
}

bool SetupWindow::ask(const char* text, const char* yes, const char* no) {
    return run_box(u"question"_s, QString::fromUtf8(text), QString::fromUtf8(yes), QString::fromUtf8(no), {});
}

void SetupWindow::tell(const char* text) {
    run_box(u"message"_s, QString::fromUtf8(text), u"OK"_s, {}, {});
}

bool SetupWindow::insert_disc(const char* text, const char* picture) {
    return run_box(u"insert_disc"_s, QString::fromUtf8(text), u"Try Again"_s, u"Cancel"_s,
                   QString::fromLocal8Bit(picture));
}

bool SetupWindow::advance(int done, int total) {
    if (!progress_) {
        progress_ = std::make_unique<QProgressDialog>(u"Copying..."_s, u"Cancel"_s, 0, total);
        progress_->setObjectName("progress"_L1);
        progress_->setWindowTitle(title_);
        progress_->setMinimumDuration(0);
        progress_->setMinimumWidth(kBarWidth);
        progress_->setAutoClose(false);
        progress_->setAutoReset(false);
    }
    progress_->setValue(done);
    QApplication::processEvents();
    return !progress_->wasCanceled();
}

}  // namespace pondera
