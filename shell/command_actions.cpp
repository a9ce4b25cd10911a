#include "shell/command_actions.h"

#include <QFile>
#include <QIcon>

#include <set>

#include "elements/level_commands.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool can_be_latched(EditCommand command) {
    static const std::set kFormats{EditCommand::kBold,          EditCommand::kItalic,        EditCommand::kUnderline,
                                   EditCommand::kOrderedList,   EditCommand::kUnorderedList, EditCommand::kJustifyLeft,
                                   EditCommand::kJustifyCenter, EditCommand::kJustifyRight};
    return kFormats.contains(command);
}

bool is_enabled(const Command& command, const Situation& situation) {
    switch (command.when) {
        case Enabled::kAlways:
            return true;
        case Enabled::kWebsite:
            return situation.website;
        case Enabled::kEditing:
            return situation.editing;
        case Enabled::kElement:  // only a selected element has a status for this
            return situation.editing && situation.editor.can(EditCommand::kMakeAbsolute);
        case Enabled::kEditorStatus:
            return situation.editing && command.editor_command && situation.editor.can(*command.editor_command);
        case Enabled::kModified:
            return situation.editing && situation.editor.modified();
    }
    return false;
}

}  // namespace

QIcon icon_named(const QString& name) {
    const QString path = u":/icons/%1.svg"_s.arg(name);
    return !name.isEmpty() && QFile::exists(path) ? QIcon(path) : QIcon();
}

QString plain_caption(QString caption) {
    if (caption.endsWith("..."_L1)) caption.chop(3);
    return caption.remove(u'&');
}

CommandActions::CommandActions(QList<Command> commands, const std::function<void(const Command&)>& run, QObject* parent)
    : QObject(parent), commands_(std::move(commands)) {
    for (const Command& command : commands_) {
        if (command.caption.isEmpty()) continue;
        auto* action = new QAction(icon_named(command.icon), command.caption, this);
        action->setObjectName(command.name);
        action->setShortcut(command.keys);
        action->setCheckable(command.editor_command && can_be_latched(*command.editor_command));
        connect(action, &QAction::triggered, this, [run, &command] { run(command); });
        actions_.insert(command.name, action);
    }
    refresh({});
}

QAction* CommandActions::action(const QString& name) const {
    return actions_.value(name);
}

const Command* CommandActions::command(const QAction* action) const {
    const auto found = std::ranges::find_if(commands_, [&](const Command& row) {
        return action != nullptr && !row.caption.isEmpty() && row.name == action->objectName();
    });
    return found == commands_.end() ? nullptr : &*found;
}

void CommandActions::refresh(const Situation& situation) {
    for (const Command& command : commands_) {
        if (QAction* action = actions_.value(command.name)) refresh_action(*action, command, situation);
    }
}

void CommandActions::refresh_action(QAction& action, const Command& command, const Situation& situation) {
    const bool enabled = is_enabled(command, situation);
    action.setEnabled(enabled);
    if (!command.editor_command) return;
    const bool latched = enabled && situation.editor.status(*command.editor_command) == CommandStatus::kLatched;
    if (action.isCheckable()) action.setChecked(latched);
    if (command.editor_command == EditCommand::kLockElement) {
        action.setText(levels_lock_caption(situation.editor.status(EditCommand::kLockElement)));
    }
}

}  // namespace pondera
