#include "publish/ftp/remote_site.h"

#include <QUrl>

#include <algorithm>

#include "publish/transfer/remote_host.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

const QString kWebsitesFolder = u"Vantiles"_s;

}  // namespace

std::expected<QStringList, QString> way_to_site(const QString& typed, const QString& website) {
    QString place = typed.trimmed().replace(u'\\', u'/');
    if (place.isEmpty()) place = website;
    QStringList parts = place.split(u'/', Qt::SkipEmptyParts);
    parts.removeAll(u"."_s);
    if (!std::ranges::all_of(parts, is_plain_name) || (parts.isEmpty() && !place.startsWith(u'/')))
        return std::unexpected(u"There can be no folder \"%1\" on a server."_s.arg(place));
    const QString path = parts.join(u'/');
    return place.startsWith(u'/') ? QStringList(u'/' + path) : QStringList{kWebsitesFolder, path};
}

QString likely_web_address(const QString& host, const QString& folder) {
    const auto server = parse_host(host);
    if (!server) return {};
    static const QStringList kWebRoots{u"htdocs"_s,  u"httpdocs"_s, u"public_html"_s, u"www"_s,
                                       u"wwwroot"_s, u"html"_s,     u"web"_s};
    QStringList folders = folder.split(u'/', Qt::SkipEmptyParts);
    const auto root = std::ranges::find_if(
        folders, [](const QString& name) { return kWebRoots.contains(name, Qt::CaseInsensitive); });
    if (root != folders.end()) folders.erase(folders.begin(), root + 1);

    QString name = QUrl::fromAce(server->name.toLatin1());
    for (const QString& service : {u"ftp."_s, u"sftp."_s, u"ftps."_s, u"ssh."_s}) {
        if (!name.startsWith(service, Qt::CaseInsensitive)) continue;
        name = u"www."_s + name.sliced(service.size());
        break;
    }
    QUrl address;
    address.setScheme(u"http"_s);
    address.setHost(name);
    address.setPath(folders.isEmpty() ? u"/"_s : u'/' + folders.join(u'/') + u'/', QUrl::DecodedMode);
    return address.toString(QUrl::FullyEncoded);
}

QString browsable_address(const QString& typed) {
    const QString text = typed.trimmed();
    if (text.isEmpty() || has_control_characters(text)) return {};
    const QUrl url(text.contains(u"://"_s) ? text : u"http://"_s + text);
    const bool web = url.scheme() == u"http" || url.scheme() == u"https";
    return url.isValid() && web && !url.host().isEmpty() ? url.toString(QUrl::FullyEncoded) : QString();
}

}  // namespace pondera
