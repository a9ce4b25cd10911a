#include "publish/folder/frm_pubblica_cartella.h"
#include "shell/publish/publish_commands.h"
#include "shell/publish/up_to_date.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

/// Publishes the open Website to a folder of this machine, of a drive or of the network.
void mnu_pubblica_cartella(Workbench& workbench) {
    Frm_Pubblica_Cartella form(workbench, [&workbench] { return bring_up_to_date(workbench); });
    workbench.prompts().run(form);
}

}  // namespace pondera
