#include "site/website_listing.h"

#include <QDir>

#include <algorithm>
#include <array>

#include "base/roots.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QStringList files_of(const QString& folder) {
    return QDir(folder).entryList(QDir::Files);
}

void sort_names(QStringList& names) {
    std::ranges::sort(names, [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order == 0 ? a < b : order < 0;
    });
}

}  // namespace

bool is_website(const QString& folder) {
    return QFileInfo(QDir(folder).filePath(editing_copy_name(kHomePage))).isFile();
}

bool is_reserved_folder(const QString& name) {
    static constexpr std::array<QStringView, 4> kReserved{u"Pondera_System", u"Pondera_Tools", u"FTP", u"FTP_TOTAL"};
    return name.startsWith(u'_') || std::ranges::any_of(kReserved, [&](QStringView reserved) {
               return reserved.compare(name, Qt::CaseInsensitive) == 0;
           });
}

QString name_in_use(const Roots& roots, const QString& name) {
    const QDir::Filters all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    const QStringList names = QDir(roots.websites()).entryList(all);
    if (names.contains(name)) return name;
    const auto found =
        std::ranges::find_if(names, [&](const QString& used) { return used.compare(name, Qt::CaseInsensitive) == 0; });
    return found == names.end() ? QString() : *found;
}

QStringList list_websites(const Roots& roots) {
    QStringList names = QDir(roots.websites()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    names.removeIf([&](const QString& name) { return is_reserved_folder(name) || !is_website(roots.website(name)); });
    sort_names(names);
    return names;
}

QStringList list_pages(const QString& website_folder) {
    QStringList pages;
    for (const QString& file : files_of(website_folder)) {
        const QString published = published_name(file);
        const bool page = is_page_file(file) && !is_never_listed(published) && published != kHomePage;
        if (page && (file == published || file == editing_copy_name(published))) pages += published;
    }
    pages.removeDuplicates();
    sort_names(pages);
    if (QFileInfo::exists(QDir(website_folder).filePath(kHomePage)) || is_website(website_folder))
        pages.prepend(kHomePage);
    return pages;
}

QStringList list_documents(const QString& website_folder) {
    QStringList documents = files_of(website_folder);
    documents.removeIf([](const QString& file) { return !is_document_file(file) || is_never_listed(file); });
    sort_names(documents);
    return documents;
}

}  // namespace pondera
