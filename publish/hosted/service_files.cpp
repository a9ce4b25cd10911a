#include "publish/hosted/service_files.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {
constexpr qsizetype kMostEntries = 10'001;
}

bool belongs_to_service(const QString& name) {
    static const QStringList kNames{u"cgi-bin"_s, u"cgi-bin/"_s, u"dominio.txt"_s, u"domain.txt"_s};
    return kNames.contains(name, Qt::CaseInsensitive) || name.contains(u"./"_s) ||
           name.contains(u"ftpquota"_s, Qt::CaseInsensitive);
}

QStringList hosted_listing(const RemoteListing& listing) {
    QStringList shown;
    for (const RemoteEntry& entry : listing.entries.first(std::min(listing.entries.size(), kMostEntries))) {
        const QString line = entry.folder ? entry.name + u'/' : entry.name;
        if (!belongs_to_service(line)) shown << line;
    }
    return shown;
}

QStringList names_of_service(const QString& website_folder) {
    QStringList names = QDir(website_folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    names.removeIf([](const QString& name) { return !belongs_to_service(name); });
    return names;
}

}  // namespace pondera
