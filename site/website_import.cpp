#include "site/website_import.h"

#include <QDir>

#include <algorithm>

#include "base/roots.h"
#include "site/folder_files.h"
#include "site/name_rules.h"
#include "site/page_name.h"
#include "site/staged_website.h"
#include "site/website_creation.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// True when a folder is `other` or lies in it, links resolved.
bool lies_in(const QString& folder, const QString& other) {
    const QString container = QFileInfo(other).canonicalFilePath() + u'/';
    return container.size() > 1 && (QFileInfo(folder).canonicalFilePath() + u'/').startsWith(container);
}

/// What of a folder's name keeps it from being a Website's, as no list would show it or no caption could; empty when
/// nothing does.
QString offending_part(const QString& name) {
    if (name.startsWith(u'_') || name.startsWith(u'.')) return name.first(1);
    if (is_reserved_folder(name)) return name;
    const bool invisible = std::ranges::any_of(name, [](QChar c) { return c.category() == QChar::Other_Control; });
    return invisible ? u"the invisible characters"_s : QString();
}

}  // namespace

QStringList websites_in_folder(const QString& folder) {
    const QDir dir(folder);
    QStringList names = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    names.removeIf([&](const QString& name) { return is_reserved_folder(name) || !is_website(dir.filePath(name)); });
    return names;
}

std::expected<WebsiteImport, QString> plan_import(const Roots& roots, const QString& folder) {
    WebsiteImport import{.folder = QDir::cleanPath(QDir(folder).absolutePath())};
    import.name = QDir(import.folder).dirName();
    const QString home = QDir(import.folder).filePath(editing_copy_name(kHomePage));
    if (import.name.isEmpty() || !is_website(import.folder) || !lies_in(home, import.folder))
        return std::unexpected(u"This folder is not a Pondera VANTILE Website."_s);
    if (const QString offending = offending_part(import.name); !offending.isEmpty())
        return std::unexpected(invalid_name_message(offending));

    const QString used = name_in_use(roots, import.name);
    if (used.isEmpty()) return import;
    import.name = used;
    if (lies_in(import.folder, roots.website(used)))
        return std::unexpected(
            u"This folder is the Website %1 itself, or lies in it. It can be opened with Open Website."_s.arg(used));
    if (!is_website(roots.website(used))) return std::unexpected(u"Name of the Website already used!"_s);
    import.replaces = true;
    return import;
}

FileResult<ImportedWebsite> import_website(const Roots& roots, const WebsiteImport& import, const Steps& steps) {
    const auto found = files_of_website(import.folder, Extent::kWebsite);
    if (!found) return std::unexpected(found.error());
    if (!found->files.contains(editing_copy_name(kHomePage)))
        return std::unexpected(
            FileError{FaultNumber::kPathNotFound, QDir(import.folder).filePath(editing_copy_name(kHomePage)), {}});
    auto staged = StagedWebsite::begin(roots);
    if (!staged) return std::unexpected(staged.error());
    const auto copied = copy_files(import.folder, staged->folder(), found->files, steps);
    if (!copied) return std::unexpected(copied.error());
    if (*copied == Work::kCancelled) return ImportedWebsite{.cancelled = true};
    if (auto made = create_media_folders(staged->folder()); !made) return std::unexpected(made.error());
    if (auto placed = staged->take_place(roots.website(import.name)); !placed) return std::unexpected(placed.error());
    return ImportedWebsite{.left_out = found->left_out};
}

}  // namespace pondera
