#include "publish/hosted/service_files.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {
constexpr qsizetype kMostEntries = 10'001;
}

bool belongs_to_service(const QString& name, const QString& account_file) {
    static const QStringList kNames{u"cgi-bin"_s, u"cgi-bin/"_s, u"dominio.txt"_s, u"domain.txt"_s};
    return kNames.contains(name, Qt::CaseInsensitive) || name.compare(account_file, Qt::CaseInsensitive) == 0 ||
           name.contains(u"./"_s) || name.contains(u"ftpquota"_s, Qt::CaseInsensitive);
}

QStringList hosted_listing(const RemoteListing& listing, const QString& account_file) {
    QStringList shown;
    for (const RemoteEntry& entry : listing.entries.first(std::min(listing.entries.size(), kMostEntries))) {
        const QString line = entry.folder ? entry.name + u'/' : entry.name;
        if (!belongs_to_service(line, account_file)) shown << line;
    }
    return shown;
}

QStringList names_of_service(const QString& website_folder, const QString& account_file) {
    QStringList names = QDir(website_folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    names.removeIf([&](const QString& name) { return !belongs_to_service(name, account_file); });
    return names;
}

}  // namespace pondera
