#include "shell/frm_font.h"

#include <QtWidgets>

#include "shell/text_lists.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QListWidget* list(const QString& name, const QStringList& entries) {
    auto* widget = new QListWidget;
    widget->setObjectName(name);
    widget->addItems(entries);
    return widget;
}

QCheckBox* check(const QString& name, const QString& caption, bool checked) {
    auto* widget = new QCheckBox(caption);
    widget->setObjectName(name);
    widget->setChecked(checked);
    return widget;
}

QString chosen(const QListWidget& list) {
    const auto items = list.selectedItems();
    return items.isEmpty() ? QString() : items.first()->text();
}

}  // namespace

frmFont::frmFont(const FontChoice& initial, QWidget* parent)
    : QDialog(parent),
      fonts_(list(u"font_names"_s, font_names())),
      sizes_(list(u"font_sizes"_s, font_sizes())),
      bold_(check(u"chkBold"_s, u"&Bold"_s, initial.bold)),
      italic_(check(u"chkItalic"_s, u"&Italic"_s, initial.italic)),
      underline_(check(u"chkUnderline"_s, u"&Underline"_s, initial.underline)),
      sample_(new QLabel(u"The quick brown fox"_s)) {
    setObjectName("frmFont"_L1);
    setWindowTitle(u"Font"_s);

    auto* font_label = new QLabel(u"&Font"_s);
    font_label->setBuddy(fonts_);
    auto* size_label = new QLabel(u"&Size"_s);
    size_label->setBuddy(sizes_);
    auto* styles = new QHBoxLayout;
    for (QCheckBox* box : {bold_, italic_, underline_}) {
        styles->addWidget(box);
        connect(box, &QCheckBox::toggled, this, &frmFont::show_sample);
    }
    styles->addStretch();
    for (QListWidget* lists : {fonts_, sizes_}) {
        connect(lists, &QListWidget::itemSelectionChanged, this, &frmFont::show_sample);
    }
    auto* sample_label = qobject_cast<QLabel*>(sample_);
    sample_label->setObjectName("sample"_L1);
    sample_label->setAlignment(Qt::AlignCenter);
    sample_label->setFrameShape(QFrame::StyledPanel);
    sample_label->setFixedHeight(76);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKButton"_L1);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelButton"_L1);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(10);
    layout->addWidget(font_label, 0, 0);
    layout->addWidget(size_label, 0, 1);
    layout->addWidget(fonts_, 1, 0);
    layout->addWidget(sizes_, 1, 1);
    layout->addLayout(styles, 2, 0, 1, 2);
    layout->addWidget(sample_, 3, 0, 1, 2);
    layout->addWidget(buttons, 4, 0, 1, 2);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    resize(400, 400);
    show_sample();
}

FontChoice frmFont::choice() const {
    return {chosen(*fonts_), chosen(*sizes_).left(1), bold_->isChecked(), italic_->isChecked(),
            underline_->isChecked()};
}

void frmFont::show_sample() {
    static constexpr std::array kPoints{8, 10, 12, 14, 18, 24, 36};
    const FontChoice now = choice();
    QFont font(now.font.isEmpty() ? u"Times New Roman"_s : now.font);
    font.setPointSize(now.size.isEmpty() ? 12 : kPoints.at(now.size.toUInt() - 1));
    font.setBold(now.bold);
    font.setItalic(now.italic);
    font.setUnderline(now.underline);
    sample_->setFont(font);
}

}  // namespace pondera
