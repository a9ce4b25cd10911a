#include "site/published_files.h"

#include <QDir>

#include <algorithm>
#include <array>

#include "site/folder_files.h"
#include "site/page_name.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

bool is_published(const QString& file_name) {
    static constexpr std::array<QStringView, 4> kLeftBehind{u"thumbs.db", u"ws_ftp.log", u"desktop.ini", u".ds_store"};
    return file_name == published_name(file_name) && !file_name.endsWith(u"_card.htm"_s) &&
           std::ranges::none_of(kLeftBehind,
                                [&](QStringView name) { return name.compare(file_name, Qt::CaseInsensitive) == 0; });
}

FileResult<QStringList> published_files(const QString& website_folder) {
    auto found = files_of_website(website_folder, Extent::kWebsite);
    if (!found) return std::unexpected(found.error());
    QStringList& files = found->files;
    files.removeIf([](const QString& file) { return !is_published(file.section(u'/', -1)); });
    std::ranges::stable_partition(files, [](const QString& file) { return !file.contains(u'/'); });
    return files;
}

QStringList unpublished_pages(const QString& website_folder) {
    QStringList pages = list_pages(website_folder);
    pages.removeIf(
        [folder = QDir(website_folder)](const QString& page) { return QFileInfo::exists(folder.filePath(page)); });
    return pages;
}

}  // namespace pondera
