#include "publish/folder/folder_summary.h"

#include <QDir>
#include <QLocale>

#include <algorithm>

#include "base/roots.h"
#include "publish/sending/destination.h"
#include "publish/sending/publication_record.h"
#include "site/website_export.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

QString counted(int number, const QString& what) {
    return QLocale(QLocale::English).toString(number) + u' ' + what + (number == 1 ? u""_s : u"s"_s);
}

}  // namespace

QString folder_summary(const FolderPublication& publication) {
    QStringList done;
    if (publication.files > 0) done << counted(publication.files, u"file"_s) + u" written"_s;
    if (publication.removed > 0) done << counted(publication.removed, u"file"_s) + u" removed"_s;
    if (!publication.refused.isEmpty())
        done << counted(static_cast<int>(publication.refused.size()), u"file"_s) + u" refused by the drive"_s;
    const QString what = done.join(u", "_s);
    if (publication.cancelled)
        return u"Cancelled%1. Publish again to go on from here."_s.arg(what.isEmpty() ? what : u" after "_s + what);
    return what.isEmpty() ? u"Nothing to do: everything is there already."_s : u"Done: %1."_s.arg(what);
}

QString refused_files(const FolderPublication& publication) {
    constexpr qsizetype kNamed = 10;
    QStringList lines;
    for (const RefusedFile& file : publication.refused.first(std::min(kNamed, publication.refused.size())))
        lines << u"%1 (%2)"_s.arg(QDir::toNativeSeparators(file.path), file.reply);
    if (publication.refused.size() > kNamed) lines << u"..."_s;
    return lines.join(u'\n');
}

QString question_of_folder(const Roots& roots, const QString& website, const QString& folder) {
    const QString place = QDir(folder).filePath(website);
    const auto record = PublicationRecord::open(roots.website(website), Destination::in_folder(place));
    if (!record || !record->files().isEmpty() || !record->unfinished().isEmpty()) return {};
    return question_of_export({website, ExportForm::kFolder, QDir::toNativeSeparators(place)});
}

}  // namespace pondera
