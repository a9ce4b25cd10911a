#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QTreeWidget>

#include "shell/pages/page_icons.h"

namespace pondera {

/// `TreeView1`: the open Website with its home page first and its other pages by kind; the pages that follow a page
/// in its group stand under it by their numbers. The current page is marked. A click or Return asks for a page, the
/// right mouse button for a menu, F2 and Del for renaming and deleting a page. What is folded, chosen and in view
/// outlasts a change of the pages.
class SiteTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit SiteTree(QWidget* parent);

    /// Shows a Website's pages by their published names; empty name: no Website, the tree is empty. Pages of one kind
    /// are sorted as people count ("2" before "10").
    void show_website(const QString& name, QStringList pages);

    void mark_current(const QString& file_name);

    /// The published file name of an item, empty for the Website and the groups.
    [[nodiscard]] static QString page_of(const QTreeWidgetItem& item);

  signals:
    void pageChosen(const QString& file_name);

    /// The page is empty where there is none: on the Website, on a group, below the pages.
    void menuRequested(const QString& file_name, const QPoint& position);

    /// A key asks for the command of that name on a page.
    void commandRequested(const QString& command, const QString& file_name);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    /// What was in view and chosen before the pages are shown anew.
    struct Place {
        int scrolled = 0;
        QString chosen;
    };

    void build(const QString& name, const QStringList& pages);
    void add_page(QTreeWidgetItem* under, const QString& page);
    void unfold();  ///< all but what the person has folded
    void return_to(const Place& place);
    void choose(QTreeWidgetItem* item);
    void show_bold(const QString& page, bool bold);

    PageIcons icons_;
    QString website_;
    QStringList pages_;
    QHash<QString, QTreeWidgetItem*> items_;  ///< by page
    QSet<QString> folded_;                    ///< what identifies the items that the person has folded
    QString current_;
};

}  // namespace pondera
