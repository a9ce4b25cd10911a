#include "site/external_folder.h"

#include <QUrl>

#include <algorithm>

#include "site/page_name.h"
#include "site/page_references.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool leads_out(const QString& relative) {
    return relative.isEmpty() || QDir::isAbsolutePath(relative) ||
           std::ranges::any_of(relative.split(u'/'), [](const QString& step) { return step.startsWith(u'.'); });
}

}  // namespace

ExternalFolder::ExternalFolder(const QString& page_file)
    : folder_(QFileInfo(page_file).canonicalPath()), page_(QFileInfo(page_file).fileName()) {
}

std::optional<QString> ExternalFolder::file_at(const QString& address, const QString& subfolder) const {
    using Place = AddressTarget::Place;
    const QString written = address.trimmed();
    const Place place = resolve_address(written, {}).place;
    if (place != Place::kWebsite && place != Place::kOutside) return std::nullopt;
    if (written.startsWith(u"file:"_s, Qt::CaseInsensitive)) return file_of_url(written);
    if (place == Place::kOutside && !written.startsWith(u'.')) return QString();

    const QString in_folder = subfolder.isEmpty() ? written : subfolder + u'/' + written;
    const QString without_anchor = in_folder.section(u'#', 0, 0);
    QStringList spellings{without_anchor, without_anchor.section(u'?', 0, 0)};
    if (const auto target = resolve_address(in_folder, {}); target.place == Place::kWebsite)
        spellings.prepend(target.file);
    for (const QString& spelling : std::as_const(spellings))
        if (QString file = reachable(spelling); !file.isEmpty()) return file;
    return QString();
}

QString ExternalFolder::file_of_url(const QString& url) const {
    const QString path = QFileInfo(QUrl(url).toLocalFile()).canonicalFilePath();
    return path.isEmpty() ? QString() : reachable(folder_.relativeFilePath(path));
}

QString ExternalFolder::reachable(const QString& relative) const {
    QString clean = relative;
    clean = QDir::cleanPath(clean.replace(u'\\', u'/'));
    const QString file = leads_out(clean) ? QString() : real_spelling(clean);
    const QFileInfo info(folder_.filePath(file));
    const bool reached =
        !file.isEmpty() && info.isFile() && !leads_out(folder_.relativeFilePath(info.canonicalFilePath()));
    return reached ? file : QString();
}

/// The path as the disk spells it, empty when there is no such file.
QString ExternalFolder::real_spelling(const QString& relative) const {
    if (QFileInfo::exists(folder_.filePath(relative))) return relative;
    QString real;
    for (const QString& step : relative.split(u'/')) {
        const QString found = entry(real, step);
        if (found.isEmpty()) return {};
        real += real.isEmpty() ? found : u'/' + found;
    }
    return real;
}

/// What a name in a subfolder is really called; empty when nothing there is called so in any case.
QString ExternalFolder::entry(const QString& subfolder, const QString& name) const {
    if (!entries_.contains(subfolder)) {
        QHash<QString, QString>& entries = entries_[subfolder];
        const QDir folder(folder_.filePath(subfolder));
        for (const QString& entry : folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
            entries.insert(entry.toLower(), entry);
    }
    return entries_[subfolder].value(name.toLower());
}

bool ExternalFolder::saved_with_page(const QString& file) const {
    const QString folder = file.section(u'/', 0, 0);
    return folder.size() < file.size() && folder.startsWith(strip_estensione(page_), Qt::CaseInsensitive);
}

}  // namespace pondera
