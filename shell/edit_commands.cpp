#include "shell/frm_font.h"
#include "shell/shell_commands.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

template <EditCommand command>
void execute(Workbench& workbench) {
    workbench.editor().execute(command);
}

template <EditCommand command>
void colour(Workbench& workbench, const QString& title, const QColor& initial) {
    if (const auto chosen = workbench.prompts().choose_colour(title, initial)) {
        workbench.editor().execute(command, chosen->name(QColor::HexRgb).toUpper());
    }
}

void text_colour(Workbench& workbench) {
    const QColor now(workbench.editor().selection().colour);
    colour<EditCommand::kForeColor>(workbench, u"Text Color"_s, now.isValid() ? now : QColor(Qt::black));
}

void text_background_colour(Workbench& workbench) {
    colour<EditCommand::kBackColor>(workbench, u"Text Background Color"_s, Qt::white);
}

void font(Workbench& workbench) {
    EditingControl& editor = workbench.editor();
    const auto latched = [&](EditCommand command) { return editor.status(command) == CommandStatus::kLatched; };
    const FontChoice before{
        {}, {}, latched(EditCommand::kBold), latched(EditCommand::kItalic), latched(EditCommand::kUnderline)};
    frmFont form(before, nullptr);
    if (!workbench.prompts().run(form)) return;

    const FontChoice after = form.choice();
    if (!after.font.isEmpty()) editor.execute(EditCommand::kFontName, after.font);
    if (!after.size.isEmpty()) editor.execute(EditCommand::kFontSize, after.size);
    if (after.bold != before.bold) editor.execute(EditCommand::kBold);
    if (after.italic != before.italic) editor.execute(EditCommand::kItalic);
    if (after.underline != before.underline) editor.execute(EditCommand::kUnderline);
}

const Help& edit_help() {
    static const Help kHelp{u"/_HELP/_6_Edit.htm"_s, u"Help - Edit"_s};
    return kHelp;
}

const Help& format_help() {
    static const Help kHelp{u"/_HELP/_6_Text Format.htm"_s, u"Help - Text Format"_s};
    return kHelp;
}

/// A row that hands one command to the editing control and follows its status.
template <EditCommand command>
Command editor_row(const QString& name, const QString& caption, const QString& menu, const QString& icon,
                   const QKeySequence& keys = {}) {
    return {.name = name,
            .caption = caption,
            .menu = menu,
            .help = menu == "Edit"_L1 ? edit_help() : format_help(),
            .icon = icon,
            .keys = keys,
            .when = Enabled::kEditorStatus,
            .editor_command = command,
            .run = execute<command>};
}

Command separator(const QString& menu) {
    return {.name = u"separator"_s, .menu = menu};
}

QList<Command> rows_of_edit() {
    const QString menu = u"Edit"_s;
    return {
        editor_row<EditCommand::kUndo>(u"mnu_undo"_s, u"&Undo"_s, menu, u"undo"_s, QKeySequence::Undo),
        editor_row<EditCommand::kRedo>(u"mnu_redo"_s, u"&Redo"_s, menu, u"redo"_s, QKeySequence::Redo),
        separator(menu),
        editor_row<EditCommand::kCut>(u"mnu_cut"_s, u"Cu&t"_s, menu, u"cut"_s, QKeySequence::Cut),
        editor_row<EditCommand::kCopy>(u"mnu_copy"_s, u"&Copy"_s, menu, u"copy"_s, QKeySequence::Copy),
        editor_row<EditCommand::kPaste>(u"mnu_paste"_s, u"&Paste"_s, menu, u"paste"_s, QKeySequence::Paste),
        {.name = u"mnu_text_paste"_s,
         .caption = u"Te&xt Paste"_s,
         .menu = menu,
         .help = edit_help(),
         .keys = QKeySequence(u"Ctrl+Shift+V"_s),
         .when = Enabled::kEditorStatus,
         .editor_command = EditCommand::kPaste,
         .run = [](Workbench& workbench) { workbench.editor().paste_text(); }},
        editor_row<EditCommand::kDelete>(u"mnu_delete"_s, u"&Delete"_s, menu, u"delete"_s),
        separator(menu),
        editor_row<EditCommand::kSelectAll>(u"mnu_select_all"_s, u"Select &All"_s, menu, {}, QKeySequence::SelectAll),
    };
}

QList<Command> rows_of_format() {
    const QString menu = u"Format"_s;
    return {
        {.name = u"mnu_font"_s,
         .caption = u"&Font..."_s,
         .menu = menu,
         .help = format_help(),
         .icon = u"font"_s,
         .when = Enabled::kEditorStatus,
         .editor_command = EditCommand::kFontName,
         .run = font},
        separator(menu),
        editor_row<EditCommand::kBold>(u"mnu_bold"_s, u"&Bold"_s, menu, u"bold"_s, QKeySequence::Bold),
        editor_row<EditCommand::kItalic>(u"mnu_italic"_s, u"&Italic"_s, menu, u"italic"_s, QKeySequence::Italic),
        editor_row<EditCommand::kUnderline>(u"mnu_underline"_s, u"&Underline"_s, menu, u"underline"_s,
                                            QKeySequence::Underline),
        separator(menu),
        {.name = u"Col_For"_s,
         .caption = u"Text &Color..."_s,
         .menu = menu,
         .help = {u"/_HELP/_6_Text Color.htm"_s, u"Help - Text Color"_s},
         .icon = u"color"_s,
         .when = Enabled::kEditorStatus,
         .editor_command = EditCommand::kForeColor,
         .run = text_colour},
        {.name = u"Col_Back"_s,
         .caption = u"Text Bac&kground Color..."_s,
         .menu = menu,
         .help = {u"/_HELP/_6_Text Color.htm"_s, u"Help - Text Background Color"_s},
         .icon = u"back-color"_s,
         .when = Enabled::kEditorStatus,
         .editor_command = EditCommand::kBackColor,
         .run = text_background_colour},
        separator(menu),
        editor_row<EditCommand::kOrderedList>(u"mnu_numbers"_s, u"&Numbered List"_s, menu, u"numbers"_s),
        editor_row<EditCommand::kUnorderedList>(u"mnu_bullets"_s, u"Bulleted &List"_s, menu, u"bullets"_s),
        editor_row<EditCommand::kOutdent>(u"mnu_outdent"_s, u"&Outdent"_s, menu, u"outdent"_s),
        editor_row<EditCommand::kIndent>(u"mnu_indent"_s, u"In&dent"_s, menu, u"indent"_s),
        separator(menu),
        editor_row<EditCommand::kJustifyLeft>(u"mnu_left"_s, u"Align L&eft"_s, menu, u"left"_s),
        editor_row<EditCommand::kJustifyCenter>(u"mnu_center"_s, u"Cen&ter"_s, menu, u"center"_s),
        editor_row<EditCommand::kJustifyRight>(u"mnu_right"_s, u"Align &Right"_s, menu, u"right"_s),
    };
}

}  // namespace

const QList<Command>& edit_commands() {
    static const QList<Command> kCommands = rows_of_edit() + rows_of_format();
    return kCommands;
}

}  // namespace pondera
