#include "shell/start_page.h"

#include <QtWidgets>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostRecent = 6;

QLabel* text(const QString& name, const QString& content) {
    auto* label = new QLabel(content);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QPushButton* start_button(const CommandActions& actions, const QString& command, const QString& name,
                          const QString& caption, const QString& icon) {
    auto* button = new QPushButton(icon_named(icon), caption);
    button->setObjectName(name);
    button->setIconSize({24, 24});
    button->setMinimumHeight(48);
    button->setCursor(Qt::PointingHandCursor);
    QAction* action = actions.action(command);
    button->setEnabled(action != nullptr);
    if (action != nullptr) QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return button;
}

}  // namespace

StartPage::StartPage(const CommandActions& actions, QWidget* parent)
    : QWidget(parent), recent_(new QWidget), recent_list_(new QVBoxLayout(recent_)) {
    setObjectName("start_page"_L1);
    setAttribute(Qt::WA_StyledBackground);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(12);
    auto* create = start_button(actions, u"Crea_Website"_s, u"cmdNew"_s, u"&New Website..."_s, u"new"_s);
    create->setProperty("primary", true);
    buttons->addWidget(create);
    buttons->addWidget(start_button(actions, u"Apri_Website"_s, u"cmdOpen"_s, u"&Open Website..."_s, u"open"_s));

    recent_list_->setContentsMargins(0, 16, 0, 0);
    recent_list_->setSpacing(2);

    auto* column = new QWidget;
    column->setFixedWidth(460);
    auto* lines = new QVBoxLayout(column);
    lines->setSpacing(10);
    lines->addWidget(text(u"start_title"_s, u"Welcome to Pondera"_s));
    lines->addWidget(
        text(u"start_text"_s, u"Make a Website from a model, fill it with your texts and pictures, publish it."_s));
    lines->addSpacing(12);
    lines->addLayout(buttons);
    lines->addWidget(recent_);

    auto* layout = new QGridLayout(this);
    layout->addWidget(column, 1, 1);
    layout->setRowStretch(0, 2);
    layout->setRowStretch(2, 3);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(2, 1);
    show_recent({});
}

void StartPage::show_recent(const QStringList& websites) {
    while (QLayoutItem* item = recent_list_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    recent_->setVisible(!websites.isEmpty());
    if (websites.isEmpty()) return;
    recent_list_->addWidget(text(u"start_recent"_s, u"Recent Websites"_s));
    for (const QString& website : websites.mid(0, kMostRecent)) {
        auto* button = new QPushButton(icon_named(u"home"_s), QString(website).replace(u'&', u"&&"_s));
        button->setObjectName("recent_"_L1 + website);
        button->setProperty("link", true);
        button->setCursor(Qt::PointingHandCursor);
        connect(button, &QPushButton::clicked, this, [this, website] { emit websiteChosen(website); });
        recent_list_->addWidget(button, 0, Qt::AlignLeft);
    }
}

}  // namespace pondera
