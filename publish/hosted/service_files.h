#pragma once

#include <QStringList>

#include "publish/transfer/remote_listing.h"

namespace pondera {

/// Whether an entry of the remote space belongs to the hosting service, so that it is neither listed nor deleted:
/// "cgi-bin", "dominio.txt", "domain.txt", `account_file`, and what contains "./" or "ftpquota". `name` is that of a
/// file, or of a folder with or without "/" behind it; case makes no difference.
[[nodiscard]] bool belongs_to_service(const QString& name, const QString& account_file);

/// A listing as it is shown: of its first 10,001 entries those that are not the service's; folders end in "/".
[[nodiscard]] QStringList hosted_listing(const RemoteListing& listing, const QString& account_file);

/// The files beside a Website's pages that would replace the service's own on the server.
[[nodiscard]] QStringList names_of_service(const QString& website_folder, const QString& account_file);

}  // namespace pondera
