#include "publish/sending/destination.h"

#include <QDir>
#include <QUrl>

#include "publish/transfer/remote_host.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// A text as a part of a key: blanks and control characters are percent-encoded, so that a key is one line and one
/// word.
QString encoded(const QString& text, const QByteArray& plain) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text, plain));
}

QString server_of(const QString& typed) {
    const auto host = parse_host(typed);
    if (!host) return u"ftp://"_s + encoded(typed.trimmed().toLower(), {});
    const QString protocol = host->protocol == HostProtocol::kSftp ? u"sftp"_s : u"ftp"_s;
    return u"%1://%2:%3"_s.arg(protocol, encoded(host->name.toLower(), ":")).arg(host->port);
}

}  // namespace

Destination Destination::on_server(const QString& host, const QString& user, const QString& remote_folder) {
    return Destination(server_of(host) + encoded(resolve_remote(u"/"_s, remote_folder), "/") + u" as "_s +
                       encoded(user, {}));
}

Destination Destination::in_folder(const QString& folder) {
    const QString path = QDir::cleanPath(QDir(folder).absolutePath());
    return Destination(u"file://"_s + encoded(path, "/"));
}

}  // namespace pondera
