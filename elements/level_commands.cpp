#include "elements/level_commands.h"

#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

template <EditCommand command>
void execute(Workbench& workbench) {
    workbench.editor().execute(command);
}

template <EditCommand command>
Command level_row(int entry, const QString& caption, const QString& icon) {
    const Help levels{u"/_HELP/_6_Lev Up-Down.htm"_s, u"Help - Levels"_s};
    const Help lock{u"/_HELP/_6_Lev Block Pos.htm"_s, u"Help - Block Position"_s};
    return {.name = u"D2DSub%1"_s.arg(entry),
            .caption = caption,
            .menu = u"Levels"_s,
            .help = command == EditCommand::kLockElement ? lock : levels,
            .icon = icon,
            .keys = {},
            .when = Enabled::kEditorStatus,
            .editor_command = command,
            .run = execute<command>};
}

}  // namespace

const QList<Command>& level_commands() {
    static const QList<Command> kCommands{
        level_row<EditCommand::kBringForward>(0, u"&Bring Up"_s, u"raise"_s),
        level_row<EditCommand::kSendBackward>(1, u"&Bring Down"_s, u"lower"_s),
        level_row<EditCommand::kBringToFront>(2, u"&Above Everything"_s, u"front"_s),
        level_row<EditCommand::kSendToBack>(3, u"&Under Everything"_s, u"back"_s),
        level_row<EditCommand::kBringAboveText>(4, u"&Bring Above the Text"_s, u"above-text"_s),
        level_row<EditCommand::kSendBelowText>(5, u"&Bring Under the Text"_s, u"below-text"_s),
        {.name = u"D2DSub6"_s, .menu = u"Levels"_s},
        level_row<EditCommand::kLockElement>(7, levels_lock_caption(CommandStatus::kEnabled), u"lock"_s),
    };
    return kCommands;
}

QString levels_lock_caption(CommandStatus status) {
    return status == CommandStatus::kLatched ? u"Unlock Position"_s : u"Lock Position"_s;
}

}  // namespace pondera
