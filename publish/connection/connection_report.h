#pragma once

#include <QString>
#include <QStringList>

#include "publish/connection/cwininet_connection.h"

namespace pondera {

/// The state of the connection in words for a person.
struct ConnectionReport {
    QString sentence;
    QString advice;  ///< what to do about it; empty when all is well
    QStringList details;
};

/// "The system has one or more active LAN cards", and the same for dial-up connections, as far as they are there.
[[nodiscard]] QStringList network_presence_texts(const NetworkPresence& presence);

[[nodiscard]] ConnectionReport connection_report(const CWinInetConnection& connection, const NetworkPresence& presence);

}  // namespace pondera
