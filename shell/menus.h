#pragma once

class QMenu;
class QMenuBar;

namespace pondera {

class CommandActions;

/// Fills the menu bar from the command table: the menus in their fixed order, without those that no command names;
/// "Page/Background" is a sub-menu of "Page".
void build_menus(QMenuBar& bar, const CommandActions& actions);

/// Fills the editing control's right-click menu with those of its entries whose commands exist; they follow their
/// commands.
void fill_context_menu(QMenu& menu, const CommandActions& actions);

}  // namespace pondera
