#pragma once

#include <QString>

#include <expected>

namespace pondera {

enum class HostProtocol { kFtp, kSftp };

/// A server as libcurl is told of it.
struct RemoteHost {
    HostProtocol protocol = HostProtocol::kFtp;
    QString name;  ///< a host name in its ASCII form, or a number; an IPv6 number without brackets
    int port = 21;

    friend bool operator==(const RemoteHost&, const RemoteHost&) = default;
};

enum class HostFault { kMalformed, kUnknownProtocol };

/// Reads a host as a person types it: "ftp.x.org", "ftp.x.org:2121", "ftp://x/", "sftp://x", "[::1]:2121", "::1".
/// Blanks around it are dropped. A path, a user name or a control character in it makes it malformed.
[[nodiscard]] std::expected<RemoteHost, HostFault> parse_host(const QString& typed);

}  // namespace pondera
