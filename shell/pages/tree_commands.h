#pragma once

#include <QObject>

namespace pondera {

class ShellWorkbench;
class SiteTree;

/// What a person does with a page in the site tree, by its right-click menu or by keys. Commands of the page under edit
/// open the tree's page first.
class TreeCommands : public QObject {
    Q_OBJECT

  public:
    /// Both outlive the commands.
    TreeCommands(SiteTree& tree, ShellWorkbench& workbench, QObject* parent);

  private:
    void show_menu(const QString& page, const QPoint& position);
    void run(const QString& command, const QString& page);

    SiteTree& tree_;
    ShellWorkbench& workbench_;
};

}  // namespace pondera
