#include "site/file_usage.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>
#include <array>

#include "base/text_file.h"
#include "site/page_name.h"
#include "site/page_references.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool is_style_sheet(const QString& file) {
    return file.endsWith(u".css"_s, Qt::CaseInsensitive);
}

bool may_refer(const QString& file) {
    static constexpr std::array<QStringView, 4> kEndings{u".css", u".js", u".txt", u".svg"};
    return is_page_file(file) || std::ranges::any_of(kEndings, [&](QStringView ending) {
               return file.endsWith(ending, Qt::CaseInsensitive);
           });
}

QString user_name(const QString& file_name) {
    if (!is_page_file(file_name)) return file_name;
    const QString page = published_name(file_name);
    return is_never_listed(page) ? u"page template"_s : display_name(page);
}

QStringList addresses_of(const QList<PageReference>& references) {
    QStringList addresses;
    for (const PageReference& reference : references) addresses += reference.address;
    addresses.removeDuplicates();
    return addresses;
}

}  // namespace

FileUsage FileUsage::of_website(const QString& website_folder, const Steps& steps) {
    QStringList files;
    for (QDirIterator entries(website_folder, QDir::Files, QDirIterator::Subdirectories); entries.hasNext();)
        if (const QString path = entries.next(); may_refer(path)) files += path;
    FileUsage usage;
    // A page's stored fragment is used by its page, which does not refer to it.
    for (const QString& page : list_pages(website_folder))
        usage.add((u"media/img/External_HTML_"_s + strip_tutto(page) + u".txt"_s).toLower(), display_name(page));
    const int total = static_cast<int>(files.size());
    for (int done = 0; done < total && usage.complete_; ++done) {
        usage.add_file(files.at(done), website_folder);
        if (!go_on(steps, done + 1, total)) usage.complete_ = false;
    }
    return usage;
}

void FileUsage::add_file(const QString& path, const QString& website_folder) {
    const auto file = read_text_file(path);
    if (!file) {
        complete_ = false;
        return;
    }
    const QString website = QDir(website_folder).dirName();
    const QString relative = QDir(website_folder).relativeFilePath(path);
    const QString name = QFileInfo(path).fileName();
    const QString folder = relative.chopped(name.size());
    if (is_page_file(name) || name.endsWith(u".svg"_s, Qt::CaseInsensitive))
        add_references(user_name(name), folder, addresses_of(page_references(file->text)), website);
    else if (is_style_sheet(name))
        add_references(name, folder, addresses_of(page_references(u"<STYLE>"_s + file->text + u"</STYLE>"_s)), website);
    else
        add_references(name, folder, addresses_of(script_references(file->text)), website);
}

void FileUsage::add_page(const QString& page, const QString& text, const QString& website) {
    add_references(user_name(page), {}, addresses_of(page_references(text)), website);
}

void FileUsage::add_references(const QString& user, const QString& folder, const QStringList& addresses,
                               const QString& website) {
    for (const QString& address : addresses)
        for (const QString& file : files_at(address, folder, website)) add(file, user);
}

/// An address counts as seen from the pages, from the folder of the file that it stands in, and, as a bare name that a
/// script may put a folder before, in the media folders.
const QStringList& FileUsage::files_at(const QString& address, const QString& folder, const QString& website) {
    const QString key = folder + u'\n' + address;
    if (const auto known = files_.constFind(key); known != files_.constEnd()) return *known;
    QStringList places{{}};
    if (!folder.isEmpty()) places += folder;
    if (!address.contains(u'/') && !address.contains(u'\\'))
        places += {u"media/img/"_s, u"media/video/"_s, u"media/audio/"_s};
    QStringList files;
    for (const QString& place : std::as_const(places)) {
        const AddressTarget target = resolve_address(place + address, website);
        if (target.place == AddressTarget::Place::kWebsite) files += target.file.toLower();
    }
    return *files_.insert(key, files);
}

void FileUsage::add(const QString& file, const QString& user) {
    users_[file].insert(user);
}

QStringList FileUsage::users_of(const QString& file) const {
    QStringList users = users_.value(file.toLower()).values();
    std::ranges::sort(users, [](const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    return users;
}

}  // namespace pondera
