#include "shell/publish/up_to_date.h"

#include "shell/page/unpublished_pages.h"
#include "shell/website/website_commands.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

bool bring_up_to_date(Workbench& workbench) {
    return save_changes(workbench) && publish_missing_pages(workbench);
}

bool publish_missing_pages(Workbench& workbench) {
    const auto published = publish_unpublished_pages(workbench.roots(), workbench.website());
    if (published) return true;
    workbench.prompts().tell(u"The Website was not published.\n\n"_s + fault_sentence(published.error()),
                             MessageIcon::kCritical);
    return false;
}

}  // namespace pondera
