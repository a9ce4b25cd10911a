#include "shell/pages/rename_page.h"

#include <QFileInfo>

#include "shell/pages/frm_nuova_scheda.h"
#include "site/name_rules.h"
#include "site/page_group.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "site/website_listing.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool is_used(const QString& folder, const QString& page, const QString& name) {
    // Another spelling of its own name is free.
    if (name.compare(name_to_rename(page), Qt::CaseInsensitive) == 0) return false;
    return !refusal_of_used_name(folder, page_kind(page), name).isEmpty() ||
           !refusal_of_used_name(folder, PageKind::kSubject, name).isEmpty();
}

std::optional<QString> refusal_of_other_name(const Workbench& workbench, const QString& page, const QString& typed) {
    if (typed_page_name(typed) == name_to_rename(page)) return std::nullopt;
    const QString folder = workbench.website_folder();
    QStringList others = list_pages(folder);
    others.removeIf(
        [first = first_page_of_group(page)](const QString& other) { return first_page_of_group(other) == first; });
    if (auto refusal = refusal_of_page_name(typed, workbench.website(), others)) return refusal;
    if (is_used(folder, page, typed_page_name(typed))) return u"Page name already in use. Change Page name."_s;
    return std::nullopt;
}

/// The name that the person gives the page; nullopt when it keeps its own.
std::optional<QString> other_name(Workbench& workbench, const QString& page) {
    Frm_Nuova_Scheda form(workbench,
                          {.form = {},
                           .title = u"Rename Page"_s,
                           .prompt = u"&Type the new name of the page"_s,
                           .note = u"All links to the page are changed to the new name."_s,
                           .help = rename_page_help(),
                           .name = name_to_rename(page)},
                          [&](const QString& typed) { return refusal_of_other_name(workbench, page, typed); });
    if (!workbench.prompts().run(form)) return std::nullopt;
    const QString name = typed_page_name(form.name());
    return name == name_to_rename(page) ? std::nullopt : std::optional(name);
}

/// Writes what is to be renamed: unsaved changes, and a page that another program removed.
bool save_for_renaming(Workbench& workbench) {
    EditingControl& editor = workbench.editor();
    return (!editor.modified() && QFileInfo::exists(editor.document_path())) || workbench.save();
}

}  // namespace

const Help& rename_page_help() {
    static const Help kHelp{u"/_HELP/_6_Info Argumen.htm"_s, u"Help - Rename Page"_s};
    return kHelp;
}

/// Renames the current page.
void mnu_rinomina_pagina(Workbench& workbench) {
    const QString page = workbench.page();
    if (is_home_page(first_page_of_group(page)))
        return workbench.prompts().tell(
            u"The home page cannot be renamed: browsers look for it by the name index.htm."_s);
    const auto name = other_name(workbench, page);
    if (!name || !save_for_renaming(workbench)) return;

    PageOutcome outcome;
    {
        ProgressRun run(workbench.progress(), u"Rename Page"_s, u"in progress..."_s, 0);
        outcome = rename_page(workbench.website_folder(), page, *name, run.steps());
    }
    if (!outcome.message.isEmpty()) workbench.prompts().tell(outcome.message, MessageIcon::kCritical);
    workbench.refresh_tree();
    if (!outcome.page.isEmpty() && outcome.page != page) {
        workbench.load(outcome.page);
    } else if (workbench.editor().changed_on_disk()) {
        workbench.reload();
    }
}

}  // namespace pondera
