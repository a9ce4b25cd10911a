#include "publish/ftp/login_group.h"

#include <QtWidgets>

#include "publish/ftp/field_pieces.h"
#include "publish/ftp/ftp_settings.h"
#include "publish/transfer/transfer_outcome.h"
#include "workbench/prompts.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

const QString kIncomplete = u"Insert all required data"_s;

}  // namespace

LoginGroup::LoginGroup(const QString& title, QComboBox* host, QPushButton* connect_button, const QString& keep_tip)
    : QGroupBox(title),
      Nome_Host_(host),
      user_id_(new QLineEdit),
      password_(password_line(u"password"_s)),
      chkSalvaDati_(new QCheckBox(u"Re&member on this computer"_s)),
      chkDeleteData_(new QCheckBox(u"For&get these data"_s)),
      rows_(new QFormLayout),
      fields_{chkSalvaDati_, chkDeleteData_} {
    Nome_Host_->setObjectName(u"Nome_Host"_s);
    Nome_Host_->setEditable(true);
    Nome_Host_->setInsertPolicy(QComboBox::NoInsert);
    // Completing what is selected, Return would bring the first host of the list and its password.
    Nome_Host_->setCompleter(nullptr);
    Nome_Host_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    user_id_->setObjectName(u"user_id"_s);
    chkSalvaDati_->setObjectName(u"chkSalvaDati"_s);
    chkSalvaDati_->setToolTip(keep_tip);
    chkDeleteData_->setObjectName(u"chkDeleteData"_s);
    connect(chkSalvaDati_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) emit keep_asked();
    });
    connect(chkDeleteData_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) emit forget_asked();
    });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rows_);
    layout->addStretch();
    rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows_->setVerticalSpacing(6);
    add_row(u"&Address"_s, Nome_Host_);
    add_row(u"&User name"_s, user_id_);
    add_row(u"Pass&word"_s, password_);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(chkSalvaDati_);
    bottom->addWidget(chkDeleteData_);
    bottom->addStretch();
    bottom->addWidget(connect_button);
    layout->addLayout(bottom);
}

void LoginGroup::add_row(const QString& caption, QWidget* field) {
    rows_->addRow(caption, field);
    if (field->focusPolicy() != Qt::NoFocus) {
        if (last_ != nullptr) setTabOrder(last_, field);
        last_ = field;
    }
    if (!caption.isEmpty()) fields_ << field;
}

void LoginGroup::set_fields_enabled(bool enabled) {
    for (QWidget* const field : std::as_const(fields_)) field->setEnabled(enabled);
}

void LoginGroup::point_out(int code) {
    QLineEdit* const field = code == kPasswordRefused || code == kLoginFailed ? password_
                             : code == kUserRefused                           ? user_id_
                                                                              : Nome_Host_->lineEdit();
    field->setFocus();
    field->selectAll();
}

bool LoginGroup::keep(Prompts& prompts, const QString& path, const FtpLogin& login) {
    if (login.host.isEmpty() || login.user.isEmpty()) {
        prompts.tell(kIncomplete);
        if (!login.host.isEmpty()) user_id_->setFocus();
        return false;
    }
    const FileResult<void> saved = save_ftp_settings(path, login);
    if (saved) return true;
    prompts.tell(fault_sentence(saved.error()), MessageIcon::kCritical);
    chkSalvaDati_->setChecked(false);
    return false;
}

bool LoginGroup::forget(Prompts& prompts, const QString& path) {
    bool agreed = false;
    if (Nome_Host_->currentText().isEmpty()) {
        prompts.tell(kIncomplete);
    } else {
        const QList<Answer> answers{Answer::kNo, Answer::kYes, Answer::kCancel};
        agreed = prompts.really(u"Are you sure you want to definitely delete the FTP data?"_s, answers);
    }
    if (agreed) {
        if (const FileResult<void> deleted = delete_ftp_settings(path); !deleted)
            prompts.tell(fault_sentence(deleted.error()), MessageIcon::kCritical);
        chkSalvaDati_->setChecked(false);
    }
    chkDeleteData_->setChecked(false);
    return agreed;
}

}  // namespace pondera
