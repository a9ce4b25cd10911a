#include "shell/shell_commands.h"

#include "shell/frm_about.h"
#include "shell/frm_settings.h"
#include "shell/frm_wizard.h"
#include "workbench/editing_control.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// A save leaves the caret at the start of the page; the person goes on writing where they were.
void save_page(Workbench& workbench) {
    workbench.editor().keep_place();
    workbench.save();
    workbench.editor().restore_place();
}

void show_settings(Workbench& workbench) {
    frmSettings form(workbench.settings(), nullptr);
    workbench.prompts().run(form);
}

void show_about(Workbench& workbench) {
    frmAbout form(nullptr);
    workbench.prompts().run(form);
}

Command separator(const QString& menu) {
    return {.name = u"separator"_s, .menu = menu};
}

QList<Command> rows_of_file() {
    const QString menu = u"File"_s;
    return {
        separator(menu),
        {.name = u"mnu_salva"_s,
         .caption = u"&Save Page"_s,
         .menu = menu,
         .help = {u"/_HELP/_6_Save.htm"_s, u"Help - Save Page"_s},
         .icon = u"save"_s,
         .keys = QKeySequence::Save,
         .when = Enabled::kEditing,
         .run = save_page},
        separator(menu),
        {.name = u"mnu_settings"_s,
         .caption = u"Se&ttings..."_s,
         .menu = menu,
         .help = {u"/_HELP/_6_Window.htm"_s, u"Help - Settings"_s},
         .keys = QKeySequence(u"Ctrl+,"_s),
         .when = Enabled::kAlways,
         .run = show_settings},
        separator(menu),
        {.name = u"FileExit"_s,
         .caption = u"E&xit"_s,
         .menu = menu,
         .keys = QKeySequence(u"Ctrl+Q"_s),
         .when = Enabled::kAlways,
         .run = [](Workbench& workbench) { workbench.quit(); }},
    };
}

QList<Command> rows_of_view() {
    const QString menu = u"View"_s;
    const Help modes{u"/_HELP/_6_Modes.htm"_s, u"Help - Edit and Browse"_s};
    return {
        {.name = u"Modo_edit"_s,
         .caption = u"&Edit Mode"_s,
         .menu = menu,
         .help = modes,
         .icon = u"edit"_s,
         .keys = QKeySequence(u"Ctrl+1"_s),
         .run = [](Workbench& workbench) { workbench.set_browsing(false); }},
        {.name = u"Modo_Browse"_s,
         .caption = u"&Browse Mode"_s,
         .menu = menu,
         .help = modes,
         .icon = u"browse"_s,
         .keys = QKeySequence(u"Ctrl+2"_s),
         .run = [](Workbench& workbench) { workbench.set_browsing(true); }},
        separator(menu),
        {.name = u"mnu_reload"_s,
         .caption = u"&Reload"_s,
         .menu = menu,
         .help = modes,
         .keys = QKeySequence(u"F5"_s),
         .run = [](Workbench& workbench) { workbench.reload(); }},
    };
}

QList<Command> rows_of_help() {
    const QString menu = u"Help"_s;
    return {
        {.name = u"mnu_help"_s,
         .caption = u"&Help"_s,
         .menu = menu,
         .icon = u"help"_s,
         .keys = QKeySequence(u"F1"_s),
         .when = Enabled::kAlways,
         .run = [](Workbench& workbench) { workbench.show_help({}); }},
        {.name = u"mnu_wizard"_s,
         .caption = u"&3 Steps for Pondera"_s,
         .menu = menu,
         .when = Enabled::kAlways,
         .run = show_wizard},
        separator(menu),
        {.name = u"mnu_about"_s,
         .caption = u"&About Pondera"_s,
         .menu = menu,
         .when = Enabled::kAlways,
         .run = show_about},
    };
}

}  // namespace

const Help& window_help() {
    static const Help kHelp{u"/_HELP/_6_Window.htm"_s, u"Help - Window"_s};
    return kHelp;
}

const QList<Command>& shell_commands() {
    static const QList<Command> kCommands = rows_of_file() + rows_of_view() + rows_of_help();
    return kCommands;
}

}  // namespace pondera
