#include "publish/cdrom/frm_player.h"
#include "shell/publish/publish_commands.h"
#include "shell/publish/up_to_date.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

/// Makes the open Website's package for a CD-ROM.
void mnu_player(Workbench& workbench) {
    frm_player form(
        workbench, [&workbench] { return multimedia_drives(workbench.roots()); },
        [&workbench] { return bring_up_to_date(workbench); });
    workbench.prompts().run(form);
}

}  // namespace pondera
