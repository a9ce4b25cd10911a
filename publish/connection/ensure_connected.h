#pragma once

#include <QString>

namespace pondera {

class InternetFunctions;
class Workbench;

/// Whether a publication to that host, as typed, may connect. Without a connection, and in off line mode, the person is
/// asked: false when they do not want to go on. Hosts of this machine and of its own network are never asked about, and
/// the person can connect although no connection is seen.
[[nodiscard]] bool ensure_connected(Workbench& workbench, const QString& host);

/// The same with other Internet functions than the machine's.
[[nodiscard]] bool ensure_connected(Workbench& workbench, InternetFunctions& functions, const QString& host);

/// Whether the person permits to leave the off line mode for that host.
[[nodiscard]] bool permits_online(Workbench& workbench, const QString& host);

}  // namespace pondera
