#include "publish/connection/ensure_connected.h"

#include <QUrl>

#include "publish/connection/cwininet_connection.h"
#include "publish/connection/frm_connection.h"
#include "publish/connection/frm_reconnect.h"
#include "publish/connection/local_host.h"
#include "publish/connection/machine_connection.h"
#include "publish/transfer/remote_host.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// True when it went well; tells the person of a failure that is not their own refusal.
bool told(Workbench& workbench, const ConnectionResult& result) {
    if (result) return true;
    if (result.error().system_number() != kRefusedByPerson)
        workbench.prompts().tell(result.error().description, MessageIcon::kCritical);
    return false;
}

QString address_of(const RemoteHost& host) {
    QUrl address;
    address.setScheme(u"ftp"_s);
    address.setHost(host.name);
    return address.toString();
}

/// Asks what to do without a connection; nothing while it goes on looking for one.
std::optional<bool> asked(Workbench& workbench, CWinInetConnection& connection, const QString& host) {
    frmReconnect form(workbench.window(), frmReconnect::Situation::kNotConnected, host);
    workbench.prompts().run(form);
    if (form.result_text() != u"RETRY") return form.result_text() == u"CONTINUE";
    frmConnection search(workbench.window(), [&] { return connection.Refresh() && connection.IsConnected(); });
    if (workbench.prompts().run(search)) return true;
    return std::nullopt;
}

}  // namespace

bool ensure_connected(Workbench& workbench, const QString& host) {
    MachineConnection machine(workbench.settings(), [&](const QString& url, quintptr) {
        return permits_online(workbench, QUrl(url).host());
    });
    return ensure_connected(workbench, machine, host);
}

bool ensure_connected(Workbench& workbench, InternetFunctions& functions, const QString& host) {
    const auto parsed = parse_host(host);
    if (!parsed || is_local_host(host)) return true;  // what is wrong with a host is told where it is connected to
    CWinInetConnection connection(functions);
    if (!told(workbench, connection.Refresh())) return false;
    if (connection.IsOffline() && !told(workbench, connection.GoOnline(address_of(*parsed)))) return false;
    while (!connection.IsConnected()) {
        if (const auto decision = asked(workbench, connection, parsed->name)) return *decision;
    }
    return true;
}

bool permits_online(Workbench& workbench, const QString& host) {
    frmReconnect form(workbench.window(), frmReconnect::Situation::kOffline, host);
    return workbench.prompts().run(form) && form.result_text() == u"ONLINE";
}

}  // namespace pondera
