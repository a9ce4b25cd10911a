#include "publish/hosted/hosting_service.h"

#include <QDir>
#include <QHash>

#include "base/roots.h"
#include "base/text_file.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kUsualPort = 21;
constexpr int kHighestPort = 65'535;
const QString kPlaceOfDomain = u"DOMAIN"_s;

/// A web address without its scheme and its last slash.
QString bare(QString address) {
    for (const QString& scheme : {u"http://"_s, u"https://"_s})
        if (address.startsWith(scheme, Qt::CaseInsensitive)) address.remove(0, scheme.size());
    while (address.endsWith(u'/')) address.chop(1);
    return address;
}

}  // namespace

QString HostingService::typed_host() const {
    return port == kUsualPort || host.isEmpty() ? host : u"%1:%2"_s.arg(host).arg(port);
}

QString HostingService::address_of(const QString& domain) const {
    return QString(address).replace(kPlaceOfDomain, domain);
}

QString HostingService::domain_of(const QString& typed) const {
    const QString name = bare(typed.trimmed());
    const QString pattern = bare(address);
    const qsizetype place = pattern.indexOf(kPlaceOfDomain);
    if (place < 0) return name;
    const QString before = pattern.first(place);
    const QString behind = pattern.sliced(place + kPlaceOfDomain.size());
    const bool is_address = name.size() > pattern.size() - kPlaceOfDomain.size() &&
                            name.startsWith(before, Qt::CaseInsensitive) && name.endsWith(behind, Qt::CaseInsensitive);
    return is_address ? name.sliced(before.size()).chopped(behind.size()) : name;
}

HostingService parse_hosting_service(const QString& text) {
    HostingService service;
    QString port;
    const QHash<QString, QString*> fields{{u"host"_s, &service.host},
                                          {u"port"_s, &port},
                                          {u"web root"_s, &service.web_root},
                                          {u"account file"_s, &service.account_file},
                                          {u"new domain page"_s, &service.new_domain_page},
                                          {u"address"_s, &service.address}};
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(u'#')) continue;
        const QString value = line.section(u'=', 1).trimmed();
        QString* const field = fields.value(line.section(u'=', 0, 0).trimmed());
        if (field && !value.isEmpty()) *field = value;
    }
    if (const int number = port.toInt(); number > 0 && number <= kHighestPort) service.port = number;
    return service;
}

FileResult<HostingService> read_hosting_service(const Roots& roots) {
    const auto file = read_text_file(QDir(roots.tools_folder()).filePath(u"sHosting.txt"_s));
    if (!file) return std::unexpected(file.error());
    return parse_hosting_service(file->text);
}

}  // namespace pondera
