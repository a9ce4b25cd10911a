#include "publish/cdrom/frm_player.h"

#include <QtWidgets>

#include <algorithm>

#include "publish/cdrom/multimedia_package.h"
#include "workbench/bar_steps.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"
#include "workbench/refilled_box.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 460;

}  // namespace

frm_player::frm_player(Workbench& workbench, std::function<QList<MultimediaDrive>()> drives,
                       std::function<bool()> prepare)
    : QDialog(workbench.window()),
      workbench_(workbench),
      drives_(std::move(drives)),
      prepare_(std::move(prepare)),
      target_(new QLabel),
      drive_(new RefilledBox([this] { show_drives(); })),
      progress_(new QProgressBar) {
    setObjectName(u"frm_player"_s);
    setWindowTitle(workbench.website() + u" Multimedia for CD-ROM"_s);
    target_->setObjectName(u"Label1"_s);
    target_->setTextFormat(Qt::PlainText);
    target_->setWordWrap(true);
    target_->setMinimumWidth(kWidth);
    drive_->setObjectName(u"Drive1"_s);
    drive_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(drive_, &QComboBox::currentIndexChanged, this, &frm_player::show_target);
    progress_->setObjectName(u"ProgressBar1"_s);
    progress_->setValue(0);
    auto* drive_label = new QLabel(u"&Drive"_s);
    drive_label->setBuddy(drive_);
    auto* note = new QLabel(
        u"When it is done, burn what is in this folder on a CD-ROM, or copy it to a memory stick. It starts by itself "
        "where the computer allows that, and the pages open in any browser."_s);
    note->setProperty("note", true);
    note->setWordWrap(true);
    auto* buttons = form_buttons(*this, [&workbench] {
        workbench.show_help({u"/_HELP/_6_File CD-Rom.htm"_s, u"Help - Create Multimedia for CD-ROM"_s});
    });
    buttons->button(QDialogButtonBox::Ok)->setText(u"&Create"_s);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    layout->addWidget(target_);
    layout->addSpacing(6);
    layout->addWidget(drive_label);
    layout->addWidget(drive_);
    layout->addWidget(note);
    layout->addSpacing(6);
    layout->addWidget(progress_);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    show_drives();
    drive_->setFocus();
}

QString frm_player::root() const {
    return drive_->currentData().toString();
}

void frm_player::show_drives() {
    const QSignalBlocker quiet(drive_);
    const QString chosen = root();
    drive_->clear();
    for (const MultimediaDrive& drive : drives_()) drive_->addItem(drive.name, drive.root);
    drive_->setCurrentIndex(std::max(0, drive_->findData(chosen)));
    show_target();
}

void frm_player::show_target() {
    target_->setText(multimedia_label(multimedia_folders(root(), workbench_.website())));
}

void frm_player::set_running(bool on) {
    running_ = on;
    cancelled_ = false;
    drive_->setEnabled(!on);
    for (const QString& name : {u"OKButton"_s, u"HelpButton"_s}) findChild<QPushButton*>(name)->setEnabled(!on);
    findChild<QPushButton*>(on ? u"CancelButton"_s : u"OKButton"_s)->setFocus();
}

void frm_player::accept() {
    if (!prepare_()) return;
    set_running(true);
    const MultimediaEnd end =
        create_multimedia(workbench_.roots(), workbench_.website(), root(), steps_of_bar(*progress_, cancelled_));
    set_running(false);
    if (end.cancelled) return QDialog::reject();
    if (end.success()) {
        progress_->setValue(progress_->maximum());
        workbench_.prompts().tell(multimedia_success(multimedia_folders(root(), workbench_.website())),
                                  MessageIcon::kInformation);
        return QDialog::accept();
    }
    progress_->setValue(0);
    const QStringList said = end.faults + QStringList{u"The Multimedia is not complete."_s};
    workbench_.prompts().tell(said.join(u"\n\n"_s), MessageIcon::kCritical);
}

void frm_player::reject() {
    if (running_)
        cancelled_ = true;
    else
        QDialog::reject();
}

}  // namespace pondera
