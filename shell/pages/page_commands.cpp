#include "shell/pages/page_commands.h"

#include "shell/pages/add_page.h"
#include "shell/pages/delete_page.h"
#include "shell/pages/external_page_command.h"
#include "shell/pages/new_page.h"
#include "shell/pages/rename_page.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QList<Command> making_pages() {
    return {
        {.name = u"mnu_pag_new"_s,
         .caption = u"&New Page..."_s,
         .menu = u"Page"_s,
         .help = new_page_help(),
         .icon = u"page"_s,
         .keys = QKeySequence(u"Ctrl+Shift+N"_s),
         .when = Enabled::kEditing,
         .run = new_page},
        {.name = u"Add_Pag"_s,
         .caption = u"&Add Page"_s,
         .menu = u"Page"_s,
         .help = add_page_help(),
         .icon = u"add-page"_s,
         .keys = QKeySequence(u"Ctrl+Shift+A"_s),
         .when = Enabled::kEditing,
         .run = Gestione_Agg_Pag},
    };
}

QList<Command> changing_pages() {
    return {
        {.name = u"separator"_s, .menu = u"Page"_s},
        {.name = u"mnu_rinomina_pagina"_s,
         .caption = u"&Rename Page..."_s,
         .menu = u"Page"_s,
         .help = rename_page_help(),
         .icon = u"rename"_s,
         .keys = QKeySequence(u"F2"_s),
         .when = Enabled::kEditing,
         .run = mnu_rinomina_pagina},
        {.name = u"Erase_Vid"_s,
         .caption = u"&Delete Page..."_s,
         .menu = u"Page"_s,
         .help = delete_page_help(),
         .icon = u"delete-page"_s,
         .when = Enabled::kEditing,
         .run = Erase_Vid},
        {.name = u"separator"_s, .menu = u"Page"_s},
    };
}

}  // namespace

const QList<Command>& page_commands() {
    static const QList<Command> commands = making_pages() + external_page_commands() + changing_pages();
    return commands;
}

}  // namespace pondera
