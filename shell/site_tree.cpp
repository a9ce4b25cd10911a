#include "shell/site_tree.h"

#include <QCollator>
#include <QHeaderView>
#include <QStyle>

#include "shell/command_actions.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPageRole = Qt::UserRole;

struct Group {
    QLatin1StringView title;
    QLatin1StringView icon;
    QList<PageKind> kinds;
};

const QList<Group>& groups() {
    static const QList<Group> kGroups{
        {"Pages"_L1, "page"_L1, {PageKind::kSubject, PageKind::kCard, PageKind::kNone}},
        {"Photo-shows"_L1, "page-show"_L1, {PageKind::kPhotoShow}},
        {"Protected pages"_L1, "page-protected"_L1, {PageKind::kProtected}},
        {"External web pages"_L1, "page-external"_L1, {PageKind::kExternal}},
        {"Popups"_L1, "page-popup"_L1, {PageKind::kPopup}},
    };
    return kGroups;
}

QTreeWidgetItem* page_item(QTreeWidgetItem* parent, const TreePage& page, const QString& icon) {
    auto* item = new QTreeWidgetItem(parent, {page.display_name});
    item->setIcon(0, icon_named(icon));
    item->setData(0, kPageRole, page.file_name);
    item->setToolTip(0, page.file_name);
    return item;
}

}  // namespace

SiteTree::SiteTree(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("TreeView1"_L1);
    setAccessibleName(u"Pages of the Website"_s);
    header()->hide();
    setIconSize({18, 18});
    setIndentation(16);
    connect(this, &QTreeWidget::itemClicked, this, &SiteTree::choose);
    // Where a single click activates, itemClicked has told of it already.
    if (!style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick)) {
        connect(this, &QTreeWidget::itemActivated, this, &SiteTree::choose);
    }
}

void SiteTree::show_website(const QString& name, QList<TreePage> pages) {
    clear();
    if (name.isEmpty()) return;
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::stable_sort(pages, [&](const TreePage& left, const TreePage& right) {
        return collator.compare(left.display_name, right.display_name) < 0;
    });

    auto* website = new QTreeWidgetItem(this, {name});
    QFont bold = font();
    bold.setBold(true);
    website->setFont(0, bold);
    for (const TreePage& page : pages) {
        if (is_home_page(page.file_name)) page_item(website, page, u"home"_s);
    }
    for (const Group& group : groups()) {
        QTreeWidgetItem* group_item = nullptr;
        for (const TreePage& page : pages) {
            if (is_home_page(page.file_name) || !group.kinds.contains(page.kind)) continue;
            if (group_item == nullptr) group_item = new QTreeWidgetItem(website, {group.title});
            page_item(group_item, page, group.icon);
        }
    }
    expandAll();
    mark_current(current_);
}

void SiteTree::mark_current(const QString& file_name) {
    current_ = file_name;
    setCurrentItem(nullptr);
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const bool current = !file_name.isEmpty() && page_of(**item) == file_name;
        if (page_of(**item).isEmpty()) continue;
        QFont marked = font();
        marked.setBold(current);
        (*item)->setFont(0, marked);
        if (current) setCurrentItem(*item);
    }
}

QString SiteTree::page_of(const QTreeWidgetItem& item) {
    return item.data(0, kPageRole).toString();
}

void SiteTree::choose(QTreeWidgetItem* item) {
    const QString page = item == nullptr ? QString() : page_of(*item);
    if (!page.isEmpty()) emit pageChosen(page);
}

}  // namespace pondera
