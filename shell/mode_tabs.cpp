#include "shell/mode_tabs.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

ModeTabs::ModeTabs(QWidget* parent) : QWidget(parent) {
    setObjectName("mode_tabs"_L1);
    setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 0);
    layout->setSpacing(2);
    edit_ = add_tab(u"lblEdit"_s, u"Edit"_s, u"edit"_s, false);
    browse_ = add_tab(u"lblBrowse"_s, u"Browse"_s, u"browse"_s, true);
    layout->addStretch();
    show_mode(false);
}

void ModeTabs::show_mode(bool browsing) {
    edit_->setChecked(!browsing);
    browse_->setChecked(browsing);
}

QPushButton* ModeTabs::add_tab(const QString& name, const QString& caption, const QString& icon, bool browse) {
    auto* tab = new QPushButton(icon_named(icon), caption);
    tab->setObjectName(name);
    tab->setCheckable(true);
    tab->setProperty("tab", true);
    connect(tab, &QPushButton::clicked, this, [this, browse](bool checked) {
        show_mode(checked ? !browse : browse);
        emit modeChosen(browse);
    });
    layout()->addWidget(tab);
    return tab;
}

}  // namespace pondera
