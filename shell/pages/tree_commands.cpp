#include "shell/pages/tree_commands.h"

#include <QMenu>

#include <algorithm>
#include <array>

#include "shell/command_actions.h"
#include "shell/links/link_commands.h"
#include "shell/pages/add_page.h"
#include "shell/pages/delete_page.h"
#include "shell/pages/new_page.h"
#include "shell/pages/rename_page.h"
#include "shell/shell_workbench.h"
#include "shell/site_tree.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

enum class For { kPages, kPagesButHome, kGroups };
enum class Needs { kNothing, kSelection };

/// A command on a page of the tree; on a group the page is empty.
struct TreeCommand {
    QLatin1StringView name;
    QLatin1StringView caption;
    QLatin1StringView icon;
    For items;
    const Help& (*help)();
    void (*run)(Workbench& workbench, const QString& page);
    Needs needs = Needs::kNothing;
};

/// Opens the page and runs a command of the page under edit.
template <void (*command)(Workbench&)>
void open_and(Workbench& workbench, const QString& page) {
    if (page == workbench.page() || workbench.load(page)) command(workbench);
}

template <void (*command)(Workbench&)>
void without_page(Workbench& workbench, const QString& /*page*/) {
    command(workbench);
}

constexpr std::array kCommands{
    TreeCommand{"Add_Pag"_L1, "&Add Page"_L1, "add-page"_L1, For::kPages, add_page_help, open_and<Gestione_Agg_Pag>},
    TreeCommand{"mnu_rinomina_pagina"_L1, "&Rename Page...\tF2"_L1, "rename"_L1, For::kPagesButHome, rename_page_help,
                open_and<mnu_rinomina_pagina>},
    TreeCommand{"mnu_treedelete"_L1, "&Delete Page...\tDel"_L1, "delete-page"_L1, For::kPagesButHome, delete_page_help,
                mnu_treedelete},
    TreeCommand{"mnu_treelink"_L1, "&Link Here"_L1, "link"_L1, For::kPages, link_help, link_selection_to,
                Needs::kSelection},
    TreeCommand{"mnu_pag_new"_L1, "&New Page..."_L1, "page"_L1, For::kGroups, new_page_help, without_page<new_page>},
};

/// True when the page under edit has something that can be made a link, or the caret in one.
bool has_selection(Workbench& workbench) {
    const Selection selection = workbench.editor().selection();
    return selection.type != SelectionType::kNone || !selection.link_href.isEmpty();
}

bool is_enabled(const TreeCommand& command, Workbench& workbench, const QString& page) {
    if (workbench.browsing() || (is_home_page(page) && command.items == For::kPagesButHome)) return false;
    return command.needs == Needs::kNothing || has_selection(workbench);
}

}  // namespace

TreeCommands::TreeCommands(SiteTree& tree, ShellWorkbench& workbench, QObject* parent)
    : QObject(parent), tree_(tree), workbench_(workbench) {
    connect(&tree, &SiteTree::menuRequested, this, &TreeCommands::show_menu);
    connect(&tree, &SiteTree::commandRequested, this, &TreeCommands::run);
}

void TreeCommands::show_menu(const QString& page, const QPoint& position) {
    auto* menu = new QMenu(&tree_);
    menu->setObjectName("tree_menu"_L1);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (!page.isEmpty()) {
        QAction* open =
            menu->addAction(icon_named(u"open"_s), u"&Open"_s, &tree_, [this, page] { emit tree_.pageChosen(page); });
        open->setObjectName("tree_open"_L1);
        menu->setDefaultAction(open);
        menu->addSeparator();
    }
    for (const TreeCommand& command : kCommands) {
        if (page.isEmpty() != (command.items == For::kGroups)) continue;
        QAction* action = menu->addAction(icon_named(command.icon), command.caption, this,
                                          [this, name = command.name, page] { run(name, page); });
        action->setObjectName(command.name);
        action->setEnabled(is_enabled(command, workbench_, page));
    }
    menu->popup(position);
}

void TreeCommands::run(const QString& command, const QString& page) {
    const auto* found = std::ranges::find(kCommands, command, &TreeCommand::name);
    if (found == kCommands.end() || workbench_.browsing()) return;
    workbench_.run(found->help(), [found, page](Workbench& workbench) { found->run(workbench, page); });
}

}  // namespace pondera
