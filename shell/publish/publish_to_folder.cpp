#include "publish/folder/frm_pubblica_cartella.h"
#include "shell/page/unpublished_pages.h"
#include "shell/publish/publish_commands.h"
#include "shell/website/website_commands.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Saves the page under edit and writes the published pages that are missing; tells what failed.
bool bring_up_to_date(Workbench& workbench) {
    if (!save_changes(workbench)) return false;
    const auto published = publish_unpublished_pages(workbench.roots(), workbench.website());
    if (published) return true;
    workbench.prompts().tell(u"The Website was not published.\n\n"_s + fault_sentence(published.error()),
                             MessageIcon::kCritical);
    return false;
}

}  // namespace

/// Publishes the open Website to a folder of this machine, of a drive or of the network.
void mnu_pubblica_cartella(Workbench& workbench) {
    Frm_Pubblica_Cartella form(workbench, [&workbench] { return bring_up_to_date(workbench); });
    workbench.prompts().run(form);
}

}  // namespace pondera
