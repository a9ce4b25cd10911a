#include "shell/menus.h"

#include <QHash>
#include <QMenu>
#include <QMenuBar>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

struct MenuTitle {
    QLatin1StringView path;
    QLatin1StringView title;
    QLatin1StringView object_name;
};

constexpr std::array kMenus{
    MenuTitle{"File"_L1, "&File"_L1, "menu_file"_L1},       MenuTitle{"Edit"_L1, "&Edit"_L1, "menu_edit"_L1},
    MenuTitle{"View"_L1, "&View"_L1, "menu_view"_L1},       MenuTitle{"Insert"_L1, "&Insert"_L1, "menu_insert"_L1},
    MenuTitle{"Format"_L1, "F&ormat"_L1, "menu_format"_L1}, MenuTitle{"Levels"_L1, "&Levels"_L1, "Livelli"_L1},
    MenuTitle{"Page"_L1, "&Page"_L1, "menu_page"_L1},       MenuTitle{"Publish"_L1, "P&ublish"_L1, "menu_publish"_L1},
    MenuTitle{"Help"_L1, "&Help"_L1, "menu_help"_L1},
};

struct ContextEntry {
    QLatin1StringView caption;
    QLatin1StringView command;
};

/// The right-click menu; an entry without caption is a separator.
constexpr std::array kContextMenu{
    ContextEntry{"Cut"_L1, "mnu_cut"_L1},
    ContextEntry{"Copy"_L1, "mnu_copy"_L1},
    ContextEntry{"Paste"_L1, "mnu_paste"_L1},
    ContextEntry{"Text Paste"_L1, "mnu_text_paste"_L1},
    ContextEntry{"Select All"_L1, "mnu_select_all"_L1},
    ContextEntry{""_L1, ""_L1},
    ContextEntry{"Bring Up"_L1, "D2DSub0"_L1},
    ContextEntry{"Bring Down"_L1, "D2DSub1"_L1},
    ContextEntry{""_L1, ""_L1},
    ContextEntry{"Image Size"_L1, "mnu_dim_imm"_L1},
    ContextEntry{"Image Position"_L1, "mnu_pos_imm"_L1},
    ContextEntry{"Image Caption"_L1, "mnu_didascalia"_L1},
    ContextEntry{""_L1, ""_L1},
    ContextEntry{"Link..."_L1, "Rendi_inter"_L1},
    ContextEntry{"Remove Link"_L1, "mnu_unlink"_L1},
    ContextEntry{"Link to Popup"_L1, "mnu_link_popup"_L1},
    ContextEntry{"Resize Popup"_L1, "mnu_resize_popup"_L1},
    ContextEntry{"Delete Link to Popup"_L1, "mnu_delete_link_popup"_L1},
    ContextEntry{""_L1, ""_L1},
    ContextEntry{"Font..."_L1, "mnu_font"_L1},
};

}  // namespace

void build_menus(QMenuBar& bar, const CommandActions& actions) {
    QHash<QString, QMenu*> menus;
    for (const MenuTitle& menu : kMenus) {
        auto* top = new QMenu(menu.title, &bar);
        top->setObjectName(menu.object_name);
        menus.insert(menu.path, top);
    }
    for (const Command& command : actions.commands()) {
        const QString top = command.menu.section(u'/', 0, 0);
        if (!menus.contains(top)) continue;
        QMenu*& menu = menus[command.menu];
        if (menu == nullptr) menu = menus.value(top)->addMenu(command.menu.section(u'/', 1));
        if (command.caption.isEmpty()) {
            menu->addSeparator();
        } else {
            menu->addAction(actions.action(command.name));
        }
    }
    for (const MenuTitle& menu : kMenus) {
        if (!menus.value(menu.path)->isEmpty()) bar.addMenu(menus.value(menu.path));
    }
}

void fill_context_menu(QMenu& menu, const CommandActions& actions) {
    for (const ContextEntry& entry : kContextMenu) {
        if (entry.caption.isEmpty()) {
            menu.addSeparator();
        } else if (QAction* command = actions.action(entry.command)) {
            QAction* action = menu.addAction(command->icon(), entry.caption, command, &QAction::trigger);
            action->setObjectName(entry.command);
            action->setEnabled(command->isEnabled());
        }
    }
}

}  // namespace pondera
