#include "shell/look.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QStyleFactory>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QPalette palette() {
    QPalette colours(QColor(0xf3f5f8));
    colours.setColor(QPalette::Window, 0xf3f5f8);
    colours.setColor(QPalette::WindowText, 0x26323f);
    colours.setColor(QPalette::Base, 0xffffff);
    colours.setColor(QPalette::AlternateBase, 0xf3f5f8);
    colours.setColor(QPalette::Text, 0x26323f);
    colours.setColor(QPalette::Button, 0xffffff);
    colours.setColor(QPalette::ButtonText, 0x26323f);
    colours.setColor(QPalette::ToolTipBase, 0x26323f);
    colours.setColor(QPalette::ToolTipText, 0xffffff);
    colours.setColor(QPalette::PlaceholderText, 0x8593a3);
    colours.setColor(QPalette::Highlight, 0x1f6fb5);
    colours.setColor(QPalette::HighlightedText, 0xffffff);
    colours.setColor(QPalette::Link, 0x1f6fb5);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colours.setColor(QPalette::Disabled, role, 0x9aa6b2);
    }
    colours.setColor(QPalette::Disabled, QPalette::Highlight, 0xd5dde5);
    return colours;
}

/// Pages that name no font are shown in those of visitors' browsers, so that their text is as wide here as there.
void set_page_fonts() {
    QWebEngineSettings* settings = QWebEngineProfile::defaultProfile()->settings();
    settings->setFontFamily(QWebEngineSettings::StandardFont, u"Times New Roman"_s);
    settings->setFontFamily(QWebEngineSettings::SerifFont, u"Times New Roman"_s);
    settings->setFontFamily(QWebEngineSettings::SansSerifFont, u"Arial"_s);
}

}  // namespace

void set_look(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(palette());
    QApplication::setWindowIcon(icon_named(u"app"_s));
    set_page_fonts();
    QFile sheet(u":/look/pondera.qss"_s);
    if (sheet.open(QIODevice::ReadOnly)) application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

}  // namespace pondera
