#include "shell/website/website_commands.h"

#include "base/roots.h"
#include "shell/website/frm_apri_nuovo.h"
#include "shell/website/frm_nuovo.h"
#include "shell/website/frm_selezione_iniziale.h"
#include "site/website_creation.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The model and card that the person chooses for the new Website; nullopt when one of the pickers was cancelled.
std::optional<NewWebsite> choose_model(Workbench& workbench, const QString& name) {
    Frm_Selezione_Iniziale models(workbench);
    if (!workbench.prompts().run(models)) return std::nullopt;
    Frm_Selezione_Iniziale1 cards(workbench, models.choice());
    if (!workbench.prompts().run(cards)) return std::nullopt;
    return NewWebsite{name, models.choice(), cards.card()};
}

void report(Workbench& workbench, const FileError& error) {
    workbench.prompts().tell(website_creation_message(error), MessageIcon::kCritical);
}

}  // namespace

/// Makes a new Website and opens it.
void Crea_Website(Workbench& workbench) {
    if (!workbench.may_leave_page()) return;
    Frm_Nuovo form(workbench);
    if (!workbench.prompts().run(form)) return;
    if (const auto made = create_website_folder(workbench.roots(), form.name()); !made)
        return report(workbench, made.error());
    const auto website = choose_model(workbench, form.name());
    if (!website) return abandon_website_folder(workbench.roots(), form.name());
    if (const auto filled = fill_website(workbench.roots(), *website); !filled)
        return report(workbench, filled.error());
    workbench.open_website(website->name);
}

/// Opens a Website.
void Apri_Website(Workbench& workbench) {
    Frm_Apri_nuovo form(workbench);
    if (workbench.prompts().run(form)) workbench.open_website(form.choice());
}

bool save_changes(Workbench& workbench) {
    return workbench.page().isEmpty() || !workbench.editor().modified() || workbench.save();
}

const QList<Command>& website_commands() {
    static const QList<Command> commands{
        {.name = u"Crea_Website"_s,
         .caption = u"&New Website..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File New Proj.htm"_s, u"Help - New Website"_s},
         .icon = u"new"_s,
         .keys = QKeySequence::New,
         .when = Enabled::kAlways,
         .run = Crea_Website},
        {.name = u"Apri_Website"_s,
         .caption = u"&Open Website..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Open Proj.htm"_s, u"Help - Website Selection"_s},
         .icon = u"open"_s,
         .keys = QKeySequence::Open,
         .when = Enabled::kAlways,
         .run = Apri_Website},
        {.name = u"Importa_Website"_s,
         .caption = u"&Import Website..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Import.htm"_s, u"Help - Import Website"_s},
         .icon = u"import"_s,
         .when = Enabled::kAlways,
         .run = Importa_Website},
        {.name = u"separator"_s, .menu = u"File"_s},
        {.name = u"salva_con_nome2"_s,
         .caption = u"Save Website &As..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Save As.htm"_s, u"Help - Save Website as"_s},
         .keys = QKeySequence(u"Ctrl+Shift+S"_s),
         .run = salva_con_nome2},
        {.name = u"Esporta_Website"_s,
         .caption = u"&Export Website..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Export.htm"_s, u"Help - Export Website"_s},
         .icon = u"export"_s,
         .run = Esporta_Website},
        {.name = u"Erase_Proj"_s,
         .caption = u"&Delete Website..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Erase Proj.htm"_s, u"Help - Delete Website"_s},
         .run = Erase_Proj},
        {.name = u"separator"_s, .menu = u"File"_s},
        {.name = u"Salva_Modello"_s,
         .caption = u"Save Interface &Model..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Save Interface.htm"_s, u"Help - Save Interface Model"_s},
         .run = Salva_Modello},
        {.name = u"Elimina_Modello"_s,
         .caption = u"De&lete Interface Model..."_s,
         .menu = u"File"_s,
         .help = {u"/_HELP/_6_File Erase Interface.htm"_s, u"Help - Delete Interface Model"_s},
         .when = Enabled::kAlways,
         .run = Elimina_Modello},
    };
    return commands;
}

}  // namespace pondera
