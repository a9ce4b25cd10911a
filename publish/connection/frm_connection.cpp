#include "publish/connection/frm_connection.h"

#include <QtWidgets>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSteps = 20;
constexpr auto kStep = std::chrono::milliseconds(500);
constexpr int kBarWidth = 340;

}  // namespace

frmConnection::frmConnection(QWidget* parent, std::function<bool()> is_connected)
    : QDialog(parent), is_connected_(std::move(is_connected)), bar_(new QProgressBar), timer_(new QTimer(this)) {
    setObjectName(u"frmConnection"_s);
    setWindowTitle(u"Connection"_s);
    bar_->setObjectName(u"ProgressBar1"_s);
    bar_->setAccessibleName(u"Time until the search is given up"_s);
    bar_->setRange(0, kSteps);
    bar_->setValue(0);
    bar_->setTextVisible(false);
    bar_->setMinimumWidth(kBarWidth);
    timer_->setObjectName(u"Timer1"_s);
    connect(timer_, &QTimer::timeout, this, &frmConnection::advance);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(u"CancelButton"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(12);
    layout->addWidget(new QLabel(u"Looking for the Internet connection..."_s));
    layout->addWidget(bar_);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    timer_->start(kStep);
}

void frmConnection::advance() {
    bar_->setValue(bar_->value() + 1);
    if (is_connected_()) return accept();
    if (bar_->value() == bar_->maximum()) reject();
}

}  // namespace pondera
