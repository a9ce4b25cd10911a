#include "elements/image/frm_ridim_imm.h"

#include <QtWidgets>

#include "elements/image_size.h"
#include "workbench/form_buttons.h"
#include "workbench/prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kOutOfRange = u"Insert values between 1 and 30000"_s;

QLineEdit* length_field(const QString& name, int length) {
    auto* field = new QLineEdit(QString::number(length));
    field->setObjectName(name);
    field->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]{0,6}"_s), field));
    field->setAlignment(Qt::AlignRight);
    field->setMaximumWidth(90);
    return field;
}

}  // namespace

Frm_Ridim_Imm::Frm_Ridim_Imm(SizeQuestion question, Prompts& prompts, const std::function<void(const Help&)>& show_help,
                             QWidget* parent)
    : QDialog(parent),
      question_(std::move(question)),
      prompts_(prompts),
      width_(length_field(u"txtLarghezza"_s, question_.size.width())),
      height_(length_field(u"txtAltezza"_s, question_.size.height())),
      proportional_(new QCheckBox(u"&Keep the proportions"_s)),
      size_(question_.size) {
    setObjectName("Frm_Ridim_Imm"_L1);
    setWindowTitle(question_.caption);
    proportional_->setObjectName("keep_proportions"_L1);
    proportional_->setChecked(true);

    auto* buttons = form_buttons(*this, [this, show_help] { show_help(question_.help); });

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    int row = 0;
    for (const auto& [caption, field] : {std::pair{u"&Width:"_s, width_}, std::pair{u"&Height:"_s, height_}}) {
        auto* label = new QLabel(caption);
        label->setBuddy(field);
        layout->addWidget(label, row, 0);
        layout->addWidget(field, row, 1);
        layout->addWidget(new QLabel(u"pixels"_s), row++, 2);
    }
    layout->addWidget(proportional_, row++, 0, 1, 3);
    layout->addWidget(buttons, row, 0, 1, 3);
    layout->setColumnStretch(2, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    width_->selectAll();

    const qreal ratio = static_cast<qreal>(qMax(1, question_.size.height())) / qMax(1, question_.size.width());
    connect(width_, &QLineEdit::textEdited, this, [this, ratio] { typed(*width_, *height_, ratio); });
    connect(height_, &QLineEdit::textEdited, this, [this, ratio] { typed(*height_, *width_, 1 / ratio); });
}

void Frm_Ridim_Imm::typed(QLineEdit& field, QLineEdit& other, qreal other_per_field) {
    if (field.text().toInt() > kGreatestImageLength) {
        prompts_.tell(kOutOfRange);
        field.setText(QString::number(kGreatestImageLength));
        field.selectAll();
    }
    const auto length = parse_image_length(field.text());
    if (!proportional_->isChecked() || !length) return;
    other.setText(QString::number(qBound(1, qRound(*length * other_per_field), kGreatestImageLength)));
}

void Frm_Ridim_Imm::accept() {
    const auto width = parse_image_length(width_->text());
    const auto height = parse_image_length(height_->text());
    if (!width || !height) {
        prompts_.tell(kOutOfRange);
        (width ? height_ : width_)->setFocus();
        return;
    }
    size_ = {*width, *height};
    QDialog::accept();
}

}  // namespace pondera
