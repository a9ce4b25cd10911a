#include "site/website_export.h"

#include <QDir>

#include "base/files.h"
#include "base/roots.h"
#include "base/zip_archive.h"
#include "site/published_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// `path` with the links on its way resolved, as far as it exists.
QString resolved(const QString& path) {
    const QFileInfo info(path);
    if (info.exists() || info.isRoot()) return info.canonicalFilePath();
    return QDir(resolved(info.path())).filePath(info.fileName());
}

bool lies_in(const QString& path, const QString& folder) {
    return (resolved(path) + u'/').startsWith(resolved(folder) + u'/', Qt::CaseInsensitive);
}

FileResult<Work> export_to_folder(const QString& from, const QString& to, const QStringList& files,
                                  const Steps& steps) {
    const bool is_new = !QFileInfo::exists(to);
    if (auto made = create_folders(to); !made) return std::unexpected(made.error());
    auto copied = copy_files(from, to, files, steps);
    if (is_new && (!copied || *copied == Work::kCancelled)) QDir(to).removeRecursively();
    return copied;
}

}  // namespace

std::expected<WebsiteExport, QString> plan_export(const Roots& roots, const QString& website, ExportForm form,
                                                  const QString& chosen) {
    const bool is_zip = form == ExportForm::kZip;
    if (!QDir::isAbsolutePath(chosen))
        return std::unexpected(is_zip ? u"Choose the ZIP file to write."_s : u"Choose the folder to export to."_s);
    QString place = QDir::cleanPath(is_zip ? chosen : chosen + u'/' + website);
    const QString folder = QFileInfo(place).path();
    if (is_zip && QFileInfo(place).isDir()) return std::unexpected(u"Type a name for the ZIP file."_s);
    if (is_zip && !place.endsWith(u".zip"_s, Qt::CaseInsensitive)) place += u".zip"_s;
    if (!QFileInfo(folder).isDir())
        return std::unexpected(u"The folder %1 does not exist."_s.arg(QDir::toNativeSeparators(folder)));
    if (lies_in(place, roots.websites()) || (!is_zip && lies_in(roots.websites(), place)))
        return std::unexpected(u"Choose a place outside of the folder of your Websites."_s);
    if (!is_zip && QFileInfo::exists(place) && !QFileInfo(place).isDir())
        return std::unexpected(u"%1 is a file, not a folder."_s.arg(QDir::toNativeSeparators(place)));
    return WebsiteExport{website, form, QDir::toNativeSeparators(place)};
}

QString question_of_export(const WebsiteExport& plan) {
    if (plan.form == ExportForm::kZip)
        return QFileInfo::exists(plan.place) ? u"%1 exists already.\nDo you want to replace it?"_s.arg(plan.place)
                                             : QString();
    const QDir folder(plan.place);
    if (!folder.exists() || folder.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) return {};
    return u"The folder %1 is not empty.\nFiles of the same names will be replaced, all others stay. "
           "Do you want to continue?"_s.arg(plan.place);
}

FileResult<Work> export_website(const Roots& roots, const WebsiteExport& plan, const Steps& steps) {
    const QString from = roots.website(plan.website);
    const auto files = published_files(from);
    if (!files) return std::unexpected(files.error());
    if (plan.form == ExportForm::kFolder) return export_to_folder(from, plan.place, *files, steps);
    const auto written = write_zip(plan.place, plan.website, from, *files, steps);
    if (!written) return std::unexpected(written.error());
    return *written ? Work::kDone : Work::kCancelled;
}

}  // namespace pondera
