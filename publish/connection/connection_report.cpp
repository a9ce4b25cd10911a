#include "publish/connection/connection_report.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

QString sentence(const CWinInetConnection& connection) {
    if (connection.IsOffline()) return u"Pondera works off line."_s;
    return connection.IsConnected() ? u"This computer is connected to the Internet."_s
                                    : u"This computer is not connected to the Internet."_s;
}

QString advice(const CWinInetConnection& connection) {
    if (connection.IsOffline())
        return u"Nothing is sent to a server on the Internet until you take the tick away below."_s;
    if (connection.IsConnected()) return {};
    return connection.IsConnectionConfigured()
               ? u"It is part of a network, but that leads to no Internet at this moment. Look whether the router is "
                 "switched on and connected."_s
               : u"Switch on Wi-Fi, or look whether the network cable is plugged in."_s;
}

}  // namespace

QStringList network_presence_texts(const NetworkPresence& presence) {
    QStringList texts;
    if (presence.lan) texts << u"The system has one or more active LAN cards"_s;
    if (presence.ras) texts << u"The system has one or more active RAS connections"_s;
    return texts;
}

ConnectionReport connection_report(const CWinInetConnection& connection, const NetworkPresence& presence) {
    ConnectionReport report{.sentence = sentence(connection), .advice = advice(connection), .details = {}};
    if (connection.IsConnected() && !connection.ConnectionName().isEmpty())
        report.details << u"Connection: %1"_s.arg(connection.ConnectionName());
    report.details << network_presence_texts(presence);
    if (connection.UseModem()) report.details << u"The Internet is reached through a modem."_s;
    if (connection.UseProxy()) report.details << u"The Internet is reached through a proxy server."_s;
    return report;
}

}  // namespace pondera
