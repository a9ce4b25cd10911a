#include "shell/frm_about.h"

#include <QtWebEngineCore/qtwebenginecoreversion.h>
#include <QtWidgets>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
    setObjectName("frmAbout"_L1);
    setWindowTitle(u"About Pondera"_s);

    auto* picture = new QLabel;
    picture->setPixmap(icon_named(u"app"_s).pixmap(QSize(72, 72), devicePixelRatioF()));
    auto* name = new QLabel(u"Pondera"_s);
    name->setObjectName("about_title"_L1);
    auto* text = new QLabel(u"VANTILE PRO  -  Web and Multimedia Editor\n\nVersion %1\nQt %2, Qt WebEngine %3"_s.arg(
        QString::fromLatin1(PONDERA_VERSION), QString::fromLatin1(qVersion()),
        QString::fromLatin1(QTWEBENGINECORE_VERSION_STR)));
    text->setObjectName("about_text"_L1);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKButton"_L1);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(24, 22, 24, 16);
    layout->setHorizontalSpacing(22);
    layout->setVerticalSpacing(8);
    layout->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(name, 0, 1);
    layout->addWidget(text, 1, 1);
    layout->addItem(new QSpacerItem(0, 8), 2, 0);
    layout->addWidget(buttons, 3, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace pondera
