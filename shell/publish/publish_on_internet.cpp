#include "publish/ftp/frm_connessione_remota2.h"
#include "shell/publish/publish_commands.h"
#include "shell/publish/up_to_date.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

/// Publishes the open Website to a server.
void mnu_pubblica(Workbench& workbench) {
    if (!workbench.may_leave_page() || !publish_missing_pages(workbench)) return;
    Frm_Connessione_Remota2 form(workbench);
    workbench.prompts().run(form);
    // Pictures of the server may have come into the Website.
    workbench.refresh_tree();
}

}  // namespace pondera
