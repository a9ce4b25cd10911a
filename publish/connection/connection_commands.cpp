#include "publish/connection/connection_commands.h"

#include "publish/connection/cwininet_connection.h"
#include "publish/connection/frm_connection_state.h"
#include "publish/connection/machine_connection.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Shows the state of the Internet connection as it is now.
void mnu_connessione(Workbench& workbench) {
    MachineConnection machine(workbench.settings());
    CWinInetConnection connection(machine);
    if (const auto refreshed = connection.Refresh(); !refreshed)
        return workbench.prompts().tell(refreshed.error().description, MessageIcon::kCritical);
    if (connection.IsConnected() && !connection.IsOffline()) {
        frmConnectionState form(workbench, connection, machine);
        workbench.prompts().run(form);
    } else {
        frmConnectionState1 form(workbench, connection, machine);
        workbench.prompts().run(form);
    }
}

}  // namespace

const QList<Command>& connection_commands() {
    static const QList<Command> commands{
        {.name = u"mnu_connessione"_s,
         .caption = u"Connection &State..."_s,
         .menu = u"Publish"_s,
         .help = {u"/_HELP/_6_File Connection.htm"_s, u"Help - Connection State"_s},
         .when = Enabled::kAlways,
         .run = mnu_connessione},
    };
    return commands;
}

}  // namespace pondera
