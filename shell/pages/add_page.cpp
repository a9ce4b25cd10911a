#include "shell/pages/add_page.h"

#include <QFileInfo>

#include "site/page_name.h"
#include "site/page_operations.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

const Help& add_page_help() {
    static const Help kHelp{u"/_HELP/_6_Pag ADD.htm"_s, u"Help - Add Page"_s};
    return kHelp;
}

/// Adds a following page to the current one.
void Gestione_Agg_Pag(Workbench& workbench) {
    Prompts& prompts = workbench.prompts();
    if (!prompts.yes(u"Would you like to add a page ?"_s)) return;
    if (workbench.page().contains(u"_4_Subject"_s)) return prompts.tell(u"Rename the page before to add a page"_s);
    const QString current = Leggi_Nome_Doc_Cor(workbench);
    if (current.isEmpty()) return prompts.tell(u"Error in the reading of the current page!"_s, MessageIcon::kCritical);
    if (!workbench.save()) return;
    if (has_next_arrow(workbench.editor().text()))
        return prompts.tell(u"It's not possible to add another page inside a group."_s);

    const auto added = add_following_page(workbench.roots(), workbench.website_folder(), current);
    if (!added) return prompts.tell(added.error(), MessageIcon::kCritical);
    workbench.refresh_tree();
    workbench.load(added->page);
    if (!added->message.isEmpty()) prompts.tell(added->message);
}

/// Reads the name of the current document.
QString Leggi_Nome_Doc_Cor(Workbench& workbench) {
    return published_name(QFileInfo(workbench.editor().document_path()).fileName());
}

}  // namespace pondera
