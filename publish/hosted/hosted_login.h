#pragma once

#include <QString>

#include "base/file_error.h"
#include "publish/ftp/ftp_settings.h"

namespace pondera {

class Roots;

/// What the person types to publish to a sub-domain: the login of the server, whose `site` is the sub-domain, and the
/// sub-domain's own password.
struct HostedLogin {
    FtpLogin server{};
    QString domain_password{};

    friend bool operator==(const HostedLogin&, const HostedLogin&) = default;
};

/// The message why nothing can be connected to with that login; empty when it can be tried.
[[nodiscard]] QString refusal_of_login(const HostedLogin& login);

/// The file of the Websites root that keeps the login: "FTP_PONDERA.txt", in the form of a server's settings file. The
/// sub-domain's own password is in no file.
[[nodiscard]] QString hosted_settings_path(const Roots& roots);

/// Where the service's account file is brought to: "temp.txt" in the Websites root.
[[nodiscard]] QString account_copy_path(const Roots& roots);

/// Whether an account file's text grants entry: what stands behind "password=" up to its end, without line breaks, is
/// the password.
[[nodiscard]] bool grants_entry(const QString& account, const QString& password);

}  // namespace pondera
