#include "publish/connection/machine_connection.h"

#include <QNetworkInformation>
#include <QNetworkInterface>
#include <QNetworkProxyFactory>
#include <QSettings>
#include <QStandardPaths>
#include <QUdpSocket>
#include <QUrl>

#include <algorithm>

#include "publish/transfer/transfer_outcome.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr auto kOfflineSetting = "Publish/Off Line"_L1;
constexpr quint16 kDiscardPort = 9;

bool is_up(const QNetworkInterface& card) {
    return card.flags().testFlags(QNetworkInterface::IsUp | QNetworkInterface::IsRunning) &&
           !card.flags().testFlag(QNetworkInterface::IsLoopBack) &&
           std::ranges::any_of(card.addressEntries(),
                               [](const QNetworkAddressEntry& entry) { return !entry.ip().isLinkLocal(); });
}

bool is_dial_up(const QNetworkInterface& card) {
    return card.type() == QNetworkInterface::Ppp || card.type() == QNetworkInterface::Slip;
}

/// The card that what goes to the Internet would leave by; invalid when no way leads there. Choosing a way sends
/// nothing: the addresses are ones that nobody has.
QNetworkInterface card_to_internet() {
    for (const QString& nobody : {u"203.0.113.1"_s, u"2001:db8::1"_s}) {
        QUdpSocket socket;
        socket.setProxy(QNetworkProxy::NoProxy);
        socket.connectToHost(QHostAddress(nobody), kDiscardPort);
        if (socket.state() != QAbstractSocket::ConnectedState) continue;
        for (const QNetworkInterface& card : QNetworkInterface::allInterfaces()) {
            const bool leaves_here = std::ranges::any_of(
                card.addressEntries(), [&](const auto& entry) { return entry.ip() == socket.localAddress(); });
            if (leaves_here && is_up(card)) return card;
        }
    }
    return {};
}

/// The network service; null where none runs.
QNetworkInformation* service() {
    return QNetworkInformation::loadDefaultBackend() ? QNetworkInformation::instance() : nullptr;
}

/// Whether the Internet is reached. A service that manages no card says nothing of the others, but when it knows that a
/// network ends before the Internet, it does.
bool reached(QNetworkInformation* service, const QNetworkInterface& card) {
    using Reach = QNetworkInformation::Reachability;
    const Reach reach = service ? service->reachability() : Reach::Unknown;
    if (reach == Reach::Online) return true;
    return reach != Reach::Site && card.isValid();
}

bool uses_modem(QNetworkInformation* service, const QNetworkInterface& card) {
    const bool by_mobile = service && service->transportMedium() == QNetworkInformation::TransportMedium::Cellular;
    return by_mobile || (card.isValid() && is_dial_up(card));
}

bool uses_proxy() {
    const auto proxies = QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(QUrl(u"https://example.org/"_s)));
    return std::ranges::any_of(proxies, [](const QNetworkProxy& proxy) {
        return proxy.type() != QNetworkProxy::NoProxy && proxy.type() != QNetworkProxy::DefaultProxy;
    });
}

bool has_dial_up_networking() {
    return !QStandardPaths::findExecutable(u"pppd"_s).isEmpty() ||
           !QStandardPaths::findExecutable(u"pppd"_s, {u"/usr/sbin"_s, u"/sbin"_s}).isEmpty();
}

}  // namespace

MachineConnection::MachineConnection(QSettings& settings, Permission permission, LastResponse last_response)
    : settings_(settings), permission_(std::move(permission)), last_response_(std::move(last_response)) {
}

bool MachineConnection::connected_state(ConnectedState& state) {
    const QNetworkInterface card = card_to_internet();
    QNetworkInformation* const network = service();
    const NetworkPresence presence = IsNetworkAlive();
    state.connected = reached(network, card);
    state.name = card.humanReadableName();
    state.bits = 0;
    const auto set = [&](ConnectionBit bit, bool on) {
        if (on) state.bits |= bit;
    };
    const bool modem = uses_modem(network, card);
    set(kConnectionModem, modem);
    set(kConnectionLan, state.connected && !modem);
    set(kConnectionProxy, uses_proxy());
    set(kRasInstalled, has_dial_up_networking());
    set(kConnectionOffline, offline());
    set(kConnectionConfigured, state.connected || presence.lan || presence.ras);
    return succeeds();
}

bool MachineConnection::set_online(bool online) {
    settings_.setValue(kOfflineSetting, !online);
    settings_.sync();
    return settings_.status() == QSettings::NoError ? succeeds() : fails(kAccessDenied);
}

bool MachineConnection::go_online(const QString& url, quintptr parent_window) {
    const QUrl address(url, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty()) return fails(kBadAddress);
    if (!offline()) return succeeds();
    if (!permission_ || !permission_(url, parent_window)) return fails(kRefusedByPerson);
    return set_online(true);
}

std::optional<QString> MachineConnection::last_response() const {
    return last_response_ ? last_response_() : std::nullopt;
}

NetworkPresence MachineConnection::IsNetworkAlive() const {
    NetworkPresence presence;
    for (const QNetworkInterface& card : QNetworkInterface::allInterfaces()) {
        if (is_up(card)) (is_dial_up(card) ? presence.ras : presence.lan) = true;
    }
    return presence;
}

bool MachineConnection::succeeds() {
    last_error_ = 0;
    return true;
}

bool MachineConnection::fails(int number) {
    last_error_ = number;
    return false;
}

bool MachineConnection::offline() const {
    return settings_.value(kOfflineSetting).toBool();
}

}  // namespace pondera
