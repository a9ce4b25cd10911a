#include "shell/site_tree.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>

#include <array>

#include "shell/pages/page_order.h"
#include "site/page_group.h"
#include "site/page_kind.h"
#include "site/page_name.h"
#include "workbench/plain_tip.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPageRole = Qt::UserRole;

struct KindGroup {
    QLatin1StringView title;
    QList<PageKind> kinds;
};

const QList<KindGroup>& kind_groups() {
    static const QList<KindGroup> kGroups{
        {"Pages"_L1, {PageKind::kSubject, PageKind::kCard, PageKind::kNone}},
        {"Photo-shows"_L1, {PageKind::kPhotoShow}},
        {"Protected pages"_L1, {PageKind::kProtected}},
        {"External web pages"_L1, {PageKind::kExternal}},
        {"Popups"_L1, {PageKind::kPopup}},
    };
    return kGroups;
}

/// What tells an item from all others: its page, or a group's title, which no page has; the Website has none.
QString identity(const QTreeWidgetItem& item) {
    if (item.parent() == nullptr) return {};
    const QString page = SiteTree::page_of(item);
    return page.isEmpty() ? item.text(0) : page;
}

QString command_of(const QKeyEvent& key) {
    if (key.modifiers() != Qt::NoModifier) return {};
    if (key.key() == Qt::Key_F2) return u"mnu_rinomina_pagina"_s;
    return key.key() == Qt::Key_Delete ? u"mnu_treedelete"_s : QString();
}

}  // namespace

SiteTree::SiteTree(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("TreeView1"_L1);
    setAccessibleName(u"Pages of the Website"_s);
    header()->hide();
    setIconSize({18, 18});
    setIndentation(16);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    connect(this, &QTreeWidget::itemClicked, this, &SiteTree::choose);
    // Where a single click activates, itemClicked has told of it already.
    if (!style()->styleHint(QStyle::SH_ItemView_ActivateItemOnSingleClick)) {
        connect(this, &QTreeWidget::itemActivated, this, &SiteTree::choose);
    }
    connect(this, &QTreeWidget::itemCollapsed, this,
            [this](QTreeWidgetItem* item) { folded_.insert(identity(*item)); });
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { folded_.remove(identity(*item)); });
}

void SiteTree::show_website(const QString& name, QStringList pages) {
    sort_as_people_count(pages);
    if (name == website_ && pages == pages_) return;
    const bool same_website = name == website_;
    if (!same_website) folded_.clear();
    const Place place{verticalScrollBar()->value(), currentItem() ? page_of(*currentItem()) : QString()};
    website_ = name;
    pages_ = pages;

    setUpdatesEnabled(false);
    clear();
    items_.clear();
    if (!name.isEmpty()) build(name, pages);
    unfold();
    show_bold(current_, true);
    return_to(same_website ? place : Place{});
    setUpdatesEnabled(true);
}

void SiteTree::build(const QString& name, const QStringList& pages) {
    auto* website = new QTreeWidgetItem({name});
    QFont bold = font();
    bold.setBold(true);
    website->setFont(0, bold);
    if (pages.contains(kHomePage)) add_page(website, kHomePage);

    const QSet<QString> known(pages.begin(), pages.end());
    QStringList following;
    for (const KindGroup& group : kind_groups()) {
        QTreeWidgetItem* of_kind = nullptr;
        for (const QString& page : pages) {
            if (is_home_page(page) || !group.kinds.contains(page_kind(page))) continue;
            const QString first = first_page_of_group(page);
            if (first != page && known.contains(first)) {
                following += page;
                continue;
            }
            if (of_kind == nullptr) of_kind = new QTreeWidgetItem(website, {group.title});
            add_page(of_kind, page);
        }
    }
    for (const QString& page : following) {
        add_page(items_.value(first_page_of_group(page)), page);
        if (const auto place = group_place(page)) items_.value(page)->setText(0, u"page %1"_s.arg(place->number));
    }
    addTopLevelItem(website);
}

void SiteTree::add_page(QTreeWidgetItem* under, const QString& page) {
    auto* item = new QTreeWidgetItem(under, {display_name(page)});
    item->setIcon(0, icons_.of(page));
    item->setData(0, kPageRole, page);
    item->setToolTip(0, plain_tip(page));
    items_.insert(page, item);
}

void SiteTree::unfold() {
    for (QTreeWidgetItemIterator item(this, QTreeWidgetItemIterator::HasChildren); *item != nullptr; ++item)
        (*item)->setExpanded(!folded_.contains(identity(**item)));
}

void SiteTree::return_to(const Place& place) {
    QTreeWidgetItem* item = items_.value(place.chosen, items_.value(current_));
    setAutoScroll(false);  // it would unfold what holds the item
    setCurrentItem(item);
    setAutoScroll(true);
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place.scrolled);
}

void SiteTree::mark_current(const QString& file_name) {
    if (current_ != file_name) show_bold(current_, false);
    current_ = file_name;
    show_bold(file_name, true);
    setCurrentItem(items_.value(file_name));
    if (currentItem() != nullptr) scrollToItem(currentItem());
}

void SiteTree::show_bold(const QString& page, bool bold) {
    QTreeWidgetItem* item = items_.value(page);
    if (item == nullptr) return;
    QFont marked = font();
    marked.setBold(bold);
    item->setFont(0, marked);
}

QString SiteTree::page_of(const QTreeWidgetItem& item) {
    return item.data(0, kPageRole).toString();
}

void SiteTree::choose(QTreeWidgetItem* item) {
    const QString page = item == nullptr ? QString() : page_of(*item);
    if (!page.isEmpty()) emit pageChosen(page);
}

/// The tree's own keys come before those of the menus.
bool SiteTree::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && !command_of(*static_cast<QKeyEvent*>(event)).isEmpty()) {
        event->accept();
        return true;
    }
    return QTreeWidget::event(event);
}

void SiteTree::keyPressEvent(QKeyEvent* event) {
    const QString command = command_of(*event);
    if (command.isEmpty()) return QTreeWidget::keyPressEvent(event);
    const QString page = currentItem() != nullptr ? page_of(*currentItem()) : QString();
    if (!page.isEmpty()) emit commandRequested(command, page);
}

void SiteTree::contextMenuEvent(QContextMenuEvent* event) {
    if (website_.isEmpty()) return;
    const bool by_key = event->reason() == QContextMenuEvent::Keyboard;
    const QTreeWidgetItem* item = by_key ? currentItem() : itemAt(event->pos());
    const QPoint position = by_key && item ? visualItemRect(item).center() : event->pos();
    emit menuRequested(item == nullptr ? QString() : page_of(*item), viewport()->mapToGlobal(position));
}

}  // namespace pondera
