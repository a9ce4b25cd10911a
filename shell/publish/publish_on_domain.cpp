#include "publish/hosted/frm_connessione_remota.h"
#include "shell/publish/publish_commands.h"
#include "shell/publish/up_to_date.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

/// Publishes the open Website to a sub-domain of the hosting service.
void mnu_pubblica_dominio(Workbench& workbench) {
    auto service = read_hosting_service(workbench.roots());
    if (!service)
        return workbench.prompts().tell(
            u"The settings of the hosting service cannot be read.\n\n"_s + fault_sentence(service.error()),
            MessageIcon::kCritical);
    if (!workbench.may_leave_page() || !publish_missing_pages(workbench)) return;
    Frm_Connessione_Remota form(workbench, *std::move(service));
    workbench.prompts().run(form);
    // Pictures of the server may have come into the Website.
    workbench.refresh_tree();
}

}  // namespace pondera
