#pragma once

#include <QString>
#include <QStringList>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// The login of a server as the person types it, with the Website's folder there.
struct FtpLogin {
    QString host{};
    QString user{};
    QString password{};
    QString site{};

    friend bool operator==(const FtpLogin&, const FtpLogin&) = default;
};

/// What a settings file holds: the lines "nomehost", "userid", "password" and "sito" (the last two only when they are
/// not empty), each ended by CR LF, all of it in double quotes and ended by CR LF.
[[nodiscard]] QString ftp_settings_text(const FtpLogin& login);

/// Reads the fields of a settings file into `login`. The first occurrence of a key's bare word counts, wherever it
/// stands; a key that is missing leaves its field as it is.
void read_ftp_settings(const QString& text, FtpLogin& login);

/// The settings file of a host: "FTP_" + the host as typed + ".txt" in the Websites root. What could lead elsewhere
/// ("/", "\", control characters, and "%" itself) stands percent-encoded, so any text is the name of one file there.
[[nodiscard]] QString ftp_settings_path(const Roots& roots, const QString& host);

/// The hosts that have a settings file, in alphabetical order.
[[nodiscard]] QStringList ftp_hosts(const Roots& roots);

/// Writes a settings file, whole or not at all. Only its owner can read it, from its first byte on.
[[nodiscard]] FileResult<void> save_ftp_settings(const QString& path, const FtpLogin& login);

/// Reads a settings file as read_ftp_settings does.
[[nodiscard]] FileResult<void> load_ftp_settings(const QString& path, FtpLogin& login);

/// Deletes a settings file; one that is not there is none the worse.
[[nodiscard]] FileResult<void> delete_ftp_settings(const QString& path);

}  // namespace pondera
