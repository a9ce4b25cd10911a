#include "publish/ftp/transfer_view.h"

#include <QtWidgets>

#include <algorithm>

#include "publish/ftp/field_pieces.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kBarSteps = 1000;  // bytes of a Website do not fit a bar's numbers

}  // namespace

TransferView::TransferView(QWidget* parent)
    : QWidget(parent),
      stage_(narrow_label(u"Prog_Etichetta"_s)),
      command_(narrow_label(u"lblProgress"_s)),
      bar_(new QProgressBar),
      count_(narrow_label(u"lblCount"_s)),
      time_left_(new QLabel),
      stop_(plain_button(u"cmdStop"_s, u"S&top"_s)) {
    bar_->setObjectName(u"ProgressBar1"_s);
    bar_->setRange(0, kBarSteps);
    bar_->setTextVisible(false);
    command_->setProperty("note", true);
    time_left_->setObjectName(u"lblTimeLeft"_s);
    connect(stop_, &QPushButton::clicked, this, &TransferView::Stopped);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(4);
    grid->addWidget(stage_, 0, 0);
    grid->addWidget(command_, 0, 1);
    grid->addWidget(bar_, 1, 0, 1, 2);
    grid->addWidget(stop_, 1, 2);
    grid->addWidget(count_, 2, 0);
    grid->addWidget(time_left_, 2, 1, Qt::AlignRight);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    set_running(false);
}

void TransferView::show_stage(const QString& text) {
    stage_->setText(text);
}

void TransferView::show_command(const QString& text) {
    command_->setText(text);
}

void TransferView::show_steps(qint64 done, qint64 all) {
    bar_->setRange(0, all > 0 ? kBarSteps : 0);
    if (all > 0) bar_->setValue(static_cast<int>(std::clamp<qint64>(done, 0, all) * kBarSteps / all));
}

void TransferView::show_count(const QString& count, const QString& time_left) {
    count_->setText(count);
    time_left_->setText(time_left);
}

void TransferView::set_running(bool running) {
    stop_->setEnabled(running);
    show_stage({});
    show_command({});
    if (running) {
        show_count({}, {});
    } else {
        time_left_->clear();
        // Bar and count stay as far as they came.
        if (bar_->maximum() == 0) show_steps(0, 1);
    }
}

}  // namespace pondera
