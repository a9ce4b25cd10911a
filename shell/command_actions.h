#pragma once

#include <QAction>
#include <QHash>
#include <QObject>

#include <functional>

#include "shell/editor_state.h"
#include "workbench/command.h"

namespace pondera {

/// What decides which commands can be chosen.
struct Situation {
    bool website = false;  ///< a Website is open
    bool editing = false;  ///< a page is open in edit mode
    EditorState editor{};
};

/// One QAction for every row of the command table, named as its command. Menus, toolbar, right-click menu, start page
/// and wizard all show these or follow them, so a command is enabled, checked and run in one place.
class CommandActions : public QObject {
    Q_OBJECT

  public:
    /// `run` is called for every command that is chosen.
    CommandActions(QList<Command> commands, const std::function<void(const Command&)>& run, QObject* parent);

    [[nodiscard]] const QList<Command>& commands() const { return commands_; }
    [[nodiscard]] QAction* action(const QString& name) const;  ///< null when the table has no such command
    [[nodiscard]] const Command* command(const QAction* action) const;

    /// Enables, disables and checks all actions.
    void refresh(const Situation& situation);

  private:
    void refresh_action(QAction& action, const Command& command, const Situation& situation);

    QList<Command> commands_;
    QHash<QString, QAction*> actions_;
};

/// The icon of that name (":/icons/NAME.svg"); a null icon when there is none.
[[nodiscard]] QIcon icon_named(const QString& name);

/// A caption without accelerator marks and dots: "&Image..." becomes "Image".
[[nodiscard]] QString plain_caption(QString caption);

}  // namespace pondera
