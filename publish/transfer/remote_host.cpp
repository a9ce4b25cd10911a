#include "publish/transfer/remote_host.h"

#include <QRegularExpression>
#include <QUrl>

#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kSftpPort = 22;
constexpr int kHighestPort = 65535;

/// The host's name in ASCII; empty when it is none.
QString ascii_name(const QString& name) {
    static const QRegularExpression kLegal(u"^[A-Za-z0-9_]([A-Za-z0-9._-]*[A-Za-z0-9_])?\\.?$"_s);
    const QString ascii = QString::fromLatin1(QUrl::toAce(name));
    const QString legal = ascii.isEmpty() ? name : ascii;
    return legal.size() <= 253 && kLegal.match(legal).hasMatch() ? legal : QString();
}

}  // namespace

std::expected<RemoteHost, HostFault> parse_host(const QString& typed) {
    if (has_control_characters(typed)) return std::unexpected(HostFault::kMalformed);
    QString rest = typed.trimmed();
    RemoteHost host;
    if (const qsizetype end = rest.indexOf(u"://"); end >= 0) {
        const QString protocol = rest.first(end).toLower();
        if (protocol != u"ftp" && protocol != u"sftp") return std::unexpected(HostFault::kUnknownProtocol);
        if (protocol == u"sftp") host = {.protocol = HostProtocol::kSftp, .name = {}, .port = kSftpPort};
        rest.remove(0, end + 3);
    }
    if (rest.endsWith(u'/')) rest.chop(1);

    static const QRegularExpression kBracketed(u"^\\[([0-9A-Fa-f:.]+)\\](?::(\\d{1,5}))?$"_s);
    static const QRegularExpression kBareNumber(u"^[0-9A-Fa-f]*:[0-9A-Fa-f:.]*:[0-9A-Fa-f:.]*$"_s);
    static const QRegularExpression kNamed(u"^([^:/@\\[\\]\\s]+)(?::(\\d{1,5}))?$"_s);
    QString port;
    if (const auto bracketed = kBracketed.match(rest); bracketed.hasMatch()) {
        host.name = bracketed.captured(1);
        port = bracketed.captured(2);
    } else if (kBareNumber.match(rest).hasMatch()) {
        host.name = rest;
    } else if (const auto named = kNamed.match(rest); named.hasMatch()) {
        host.name = ascii_name(named.captured(1));
        port = named.captured(2);
    }
    if (host.name.isEmpty()) return std::unexpected(HostFault::kMalformed);
    if (!port.isEmpty()) host.port = port.toInt();
    if (host.port < 1 || host.port > kHighestPort) return std::unexpected(HostFault::kMalformed);
    return host;
}

}  // namespace pondera
