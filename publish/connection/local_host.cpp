#include "publish/connection/local_host.h"

#include <QHostAddress>
#include <QNetworkInterface>

#include <algorithm>
#include <array>

#include "publish/transfer/remote_host.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr std::array kPrivateNetworks{"10.0.0.0/8"_L1, "172.16.0.0/12"_L1, "192.168.0.0/16"_L1, "fc00::/7"_L1};
constexpr std::array kLocalEndings{".localhost"_L1, ".local"_L1,    ".lan"_L1,
                                   ".home"_L1,      ".internal"_L1, ".home.arpa"_L1};

bool is_private(const QHostAddress& address) {
    return address.isLoopback() || address.isLinkLocal() ||
           std::ranges::any_of(kPrivateNetworks, [&](QLatin1StringView network) {
               return address.isInSubnet(QHostAddress::parseSubnet(network));
           });
}

/// Whether a card of this machine is part of the address's network.
bool is_attached(const QHostAddress& address) {
    const auto cards = QNetworkInterface::allInterfaces();
    return std::ranges::any_of(cards, [&](const QNetworkInterface& card) {
        const auto entries = card.addressEntries();
        return std::ranges::any_of(entries, [&](const QNetworkAddressEntry& entry) {
            return entry.prefixLength() > 0 && address.isInSubnet(entry.ip(), entry.prefixLength());
        });
    });
}

}  // namespace

bool is_local_host(const QString& typed) {
    const auto host = parse_host(typed);
    if (!host) return false;
    if (const QHostAddress address(host->name); !address.isNull()) return is_private(address) || is_attached(address);
    return !host->name.contains(u'.') || std::ranges::any_of(kLocalEndings, [&](QLatin1StringView ending) {
        return host->name.endsWith(ending, Qt::CaseInsensitive);
    });
}

}  // namespace pondera
