#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// The maker's hosting service, as its settings file "sHosting.txt" in the tools folder has it. What the file does not
/// name keeps the value that it has here.
struct HostingService {
    QString host{};
    int port = 21;
    QString web_root = QStringLiteral("public_html");     ///< the server's folder that holds one folder per sub-domain
    QString account_file = QStringLiteral("domain.txt");  ///< in the sub-domain's folder
    QString new_domain_page{};                            ///< where a new sub-domain is requested
    QString address{};                                    ///< of a sub-domain; "DOMAIN" stands for its name

    /// The host as a person types it, with the port where it is not the usual one.
    [[nodiscard]] QString typed_host() const;

    /// The web address of a sub-domain; empty when the settings name none.
    [[nodiscard]] QString address_of(const QString& domain) const;

    /// The sub-domain's name of what a person typed: that name itself, or its web address with or without "http://".
    [[nodiscard]] QString domain_of(const QString& typed) const;
};

/// Reads lines "key = value"; those that begin with "#" are remarks, and what cannot be understood is left out.
[[nodiscard]] HostingService parse_hosting_service(const QString& text);

[[nodiscard]] FileResult<HostingService> read_hosting_service(const Roots& roots);

}  // namespace pondera
