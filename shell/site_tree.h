#pragma once

#include <QList>
#include <QTreeWidget>

#include "site/page_kind.h"

namespace pondera {

/// A page as the tree shows it.
struct TreePage {
    QString file_name;  ///< published
    QString display_name;
    PageKind kind = PageKind::kNone;
};

/// `TreeView1`: the open Website with its home page first and its other pages by kind; the current page is marked. A
/// click or Return asks for a page.
class SiteTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit SiteTree(QWidget* parent);

    /// Shows a Website's pages; empty name: no Website, the tree is empty. Pages of one kind are sorted as people count
    /// ("2" before "10").
    void show_website(const QString& name, QList<TreePage> pages);

    void mark_current(const QString& file_name);

    /// The published file name of an item, empty for the Website and the groups.
    [[nodiscard]] static QString page_of(const QTreeWidgetItem& item);

  signals:
    void pageChosen(const QString& file_name);

  private:
    void choose(QTreeWidgetItem* item);

    QString current_;
};

}  // namespace pondera
