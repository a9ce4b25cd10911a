#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include <optional>

#include "workbench/editing_control.h"

namespace pondera {

class Workbench;

/// A help page: its path in the help folder ("/_HELP/_6_Ins Image.htm") and the viewer's caption ("Help - Select
/// Image").
struct Help {
    QString page;
    QString caption;
};

/// When a command can be chosen.
enum class Enabled { kAlways, kWebsite, kEditing, kElement, kEditorStatus, kModified };

/// One command of the program: menus and toolbar are built from these rows. `menu` is the path of the menu that holds
/// it ("Insert", "Page/Background"); an empty one is reached by toolbar or keyboard only. Rows of one menu stand in
/// table order; a row whose caption is empty is a separator.
struct Command {
    QString name;       ///< objectName of the action: "mnu_ins_marchio"
    QString caption{};  ///< with its accelerator: "&Image..."
    QString menu{};
    Help help{};
    QString icon{};  ///< resource name without folder and ending: "image"
    QKeySequence keys{};
    Enabled when = Enabled::kWebsite;
    std::optional<EditCommand> editor_command{};  ///< for Enabled::kEditorStatus; also shows "latched" as checked
    void (*run)(Workbench&) = nullptr;
};

}  // namespace pondera
