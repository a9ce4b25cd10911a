#include "shell/pages/new_page.h"

#include "shell/pages/frm_nuova_scheda.h"
#include "site/name_rules.h"
#include "site/page_operations.h"
#include "site/website_listing.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr PageKind kKind = PageKind::kSubject;

std::optional<QString> refusal_of_new_name(const Workbench& workbench, const QString& typed) {
    const QString folder = workbench.website_folder();
    if (auto refusal = refusal_of_page_name(typed, workbench.website(), list_pages(folder))) return refusal;
    if (refusal_of_used_name(folder, kKind, typed_page_name(typed)).isEmpty()) return std::nullopt;
    return page_creation_message({FaultNumber::kAlreadyExists, {}, {}});
}

}  // namespace

const Help& new_page_help() {
    static const Help kHelp{u"/_HELP/_6_Pag NEW.htm"_s, u"Help - New Page"_s};
    return kHelp;
}

void new_page(Workbench& workbench) {
    if (!workbench.may_leave_page()) return;
    Frm_Nuova_Scheda form(workbench,
                          {.form = {},
                           .title = u"New Page"_s,
                           .prompt = u"&Type the name of the new page"_s,
                           .note = u"Letters and digits without spaces. Visitors read the name in the address and "
                                   "you find the page by it."_s,
                           .help = new_page_help()},
                          [&](const QString& typed) { return refusal_of_new_name(workbench, typed); });
    if (!workbench.prompts().run(form)) return;

    const auto page = create_page(
        {.website_folder = workbench.website_folder(), .kind = kKind, .name = typed_page_name(form.name())});
    if (!page) return workbench.prompts().tell(page.error(), MessageIcon::kCritical);
    workbench.refresh_tree();
    if (workbench.load(*page)) workbench.save();
}

}  // namespace pondera
