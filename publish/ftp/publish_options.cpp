#include "publish/ftp/publish_options.h"

#include <QtWidgets>

#include "publish/ftp/field_pieces.h"

using namespace Qt::StringLiterals;

namespace pondera {

PublishOptions::PublishOptions(QWidget* parent)
    : QGroupBox(u"Publish"_s, parent),
      partial_(new QRadioButton(u"O&nly what changed"_s)),
      total_(new QRadioButton(u"The whole We&bsite"_s)),
      remove_(new QCheckBox(u"Remo&ve from the server what was deleted from the Website"_s)),
      address_(new QLineEdit),
      publish_(plain_button(u"cmdSel"_s, u"&Publish"_s)) {
    partial_->setObjectName(u"optPartial"_s);
    partial_->setChecked(true);
    total_->setObjectName(u"optTotal"_s);
    remove_->setObjectName(u"chkRemove"_s);
    remove_->setChecked(true);
    address_->setObjectName(u"txtAddress"_s);
    address_->setToolTip(u"Where visitors find the Website; used for the link after publishing"_s);
    auto* label = new QLabel(u"Web a&ddress"_s);
    label->setBuddy(address_);
    connect(publish_, &QPushButton::clicked, this, &PublishOptions::PublishAsked);

    auto* modes = new QHBoxLayout;
    modes->addWidget(partial_);
    modes->addWidget(total_);
    modes->addStretch();
    auto* address = new QHBoxLayout;
    address->addWidget(label);
    address->addWidget(address_, 1);
    address->addWidget(publish_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(modes);
    layout->addWidget(remove_);
    layout->addStretch();
    layout->addLayout(address);
}

PublicationMode PublishOptions::mode() const {
    return total_->isChecked() ? PublicationMode::kTotal : PublicationMode::kPartial;
}

void PublishOptions::choose_partial() {
    partial_->setChecked(true);
}

bool PublishOptions::remove_deleted() const {
    return remove_->isChecked();
}

QString PublishOptions::address() const {
    return address_->text().trimmed();
}

bool PublishOptions::has_typed_address() const {
    return address_->isModified() && !address().isEmpty();
}

void PublishOptions::set_address(const QString& address) {
    address_->setText(address);
    address_->setCursorPosition(0);
}

}  // namespace pondera
