#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <vector>

#include "publish/transfer/internet_transfer.h"
#include "publish/transfer/remote_host.h"

namespace pondera {

/// Whom to connect to, and how.
struct TransferLogin {
    RemoteHost host;
    QString user;
    QString password;
    ProtectionWish protection = ProtectionWish::kWhenOffered;
    QByteArray trusted_certificate;

    friend bool operator==(const TransferLogin&, const TransferLogin&) = default;
};

/// The bounds of all waits for a server.
struct TransferWaits {
    std::chrono::milliseconds connect{20'000};  ///< until the server says its first word
    std::chrono::milliseconds silence{30'000};  ///< without a byte in either direction
    /// Before each new try of a command whose connection broke.
    std::vector<std::chrono::milliseconds> retries{std::chrono::milliseconds(500), std::chrono::milliseconds(2'000),
                                                   std::chrono::milliseconds(5'000)};
};

}  // namespace pondera
