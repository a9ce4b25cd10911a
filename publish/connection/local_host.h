#pragma once

#include <QString>

namespace pondera {

/// Whether a host, as typed, is this machine or stands in its own network, so that it is reached without the Internet:
/// a number of a private or attached network, a name without dots, or a name that local networks give (".local",
/// ".lan"). Nothing is looked up.
[[nodiscard]] bool is_local_host(const QString& typed);

}  // namespace pondera
