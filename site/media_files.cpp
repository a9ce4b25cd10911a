#include "site/media_files.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

#include "base/files.h"
#include "site/page_name.h"
#include "site/website_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kCompareChunk = 1 << 20;

/// Letters whose plain form is no part of their Unicode decomposition.
QString plain_letters(QChar c) {
    static const QHash<QChar, QString> kPlain{{u'ß', u"ss"_s}, {u'æ', u"ae"_s}, {u'Æ', u"AE"_s}, {u'ø', u"o"_s},
                                              {u'Ø', u"O"_s},  {u'œ', u"oe"_s}, {u'Œ', u"OE"_s}, {u'ł', u"l"_s},
                                              {u'Ł', u"L"_s},  {u'đ', u"d"_s},  {u'Đ', u"D"_s},  {u'ı', u"i"_s}};
    return kPlain.value(c, QString(c));
}

bool is_allowed(QChar c) {
    return (c.unicode() < 0x80 && c.isLetterOrNumber()) || c == u'-' || c == u'_' || c == u'.';
}

QString clean_characters(const QString& text) {
    QString plain;
    for (const QChar c : text) plain += plain_letters(c);
    QString clean;
    for (const QChar c : plain.normalized(QString::NormalizationForm_KD)) {
        if (is_allowed(c))
            clean += c;
        else if (c.isSpace() && !clean.endsWith(u'-'))
            clean += u'-';
    }
    return clean;
}

bool is_clean_path(const QString& relative_path) {
    return std::ranges::all_of(relative_path, [](QChar c) { return is_allowed(c) || c == u'/'; });
}

/// True when both files can be read and hold the same bytes.
bool same_bytes(const QString& one, const QString& other) {
    QFile a(one);
    QFile b(other);
    if (!a.open(QIODevice::ReadOnly) || !b.open(QIODevice::ReadOnly) || a.size() != b.size()) return false;
    while (!a.atEnd()) {
        const QByteArray chunk = a.read(kCompareChunk);
        if (chunk.isEmpty() || b.read(kCompareChunk) != chunk) return false;
    }
    return true;
}

/// The path of a file in a Website, if it lies there and works as a link as it is.
std::optional<QString> clean_path_in_website(const QFileInfo& file, const QDir& website) {
    const QString relative = website.relativeFilePath(file.canonicalFilePath());
    const bool is_inside = !relative.startsWith(u"../"_s) && QDir::isRelativePath(relative);
    return is_inside && is_clean_path(relative) ? std::optional(relative) : std::nullopt;
}

/// What a file is called when nothing is left of its own name.
QString word_for_files_of(const QString& subfolder) {
    if (subfolder.isEmpty()) return u"document"_s;
    return subfolder == kPictureFolder ? u"image"_s : subfolder.section(u'/', -1);
}

/// The names in a folder by their lower-case forms; beside the pages those of the home page are never free.
QHash<QString, QString> taken_names(const QString& folder, bool beside_pages) {
    QHash<QString, QString> taken;
    for (const QString& entry : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        taken.insert(entry.toLower(), entry);
    if (beside_pages)
        for (const QString& home : {kHomePage, u"index.html"_s}) taken.insert(home, {});
    return taken;
}

QString name_in_folder(const QString& file_name, const QString& subfolder) {
    const QString nothing_left = word_for_files_of(subfolder);
    QString name = clean_file_name(file_name, nothing_left);
    if (!subfolder.isEmpty()) return name;
    while (name.startsWith(u'_')) name.remove(0, 1);
    return name.isEmpty() || name.startsWith(u'.') ? nothing_left + name : name;
}

}  // namespace

QString clean_file_name(const QString& file_name, const QString& nothing_left) {
    const qsizetype dot = file_name.lastIndexOf(u'.');
    QString base = clean_characters(dot > 0 ? file_name.first(dot) : file_name);
    const QString ending = dot > 0 ? clean_characters(file_name.sliced(dot + 1)) : QString();
    while (base.startsWith(u'.') || base.startsWith(u'-')) base.remove(0, 1);
    while (base.endsWith(u'.') || base.endsWith(u'-')) base.chop(1);
    if (base.isEmpty()) base = nothing_left;
    return ending.isEmpty() ? base : base + u'.' + ending;
}

FileResult<QString> bring_file_into_website(const QString& file, const QString& website_folder,
                                            const QString& subfolder) {
    const QFileInfo source(file);
    for (const QFileInfo& needed : {source, QFileInfo(website_folder)})
        if (!needed.exists())
            return std::unexpected(
                FileError{FaultNumber::kPathNotFound, QDir::toNativeSeparators(needed.filePath()), {}});
    if (!source.isFile())
        return std::unexpected(FileError{FaultNumber::kInvalidCall, QDir::toNativeSeparators(file), {}});

    const QDir website(QFileInfo(website_folder).canonicalFilePath());
    if (const auto path = clean_path_in_website(source, website)) return *path;

    const QDir folder(website.filePath(subfolder));
    if (const auto made = create_folders(folder.path()); !made) return std::unexpected(made.error());
    const QString prefix = subfolder.isEmpty() ? QString() : subfolder + u'/';

    const QFileInfo clean(name_in_folder(source.fileName(), subfolder));
    const QString ending = clean.suffix().isEmpty() ? QString() : u'.' + clean.suffix();
    const auto taken = taken_names(folder.path(), subfolder.isEmpty());
    QString name = clean.fileName();
    for (int number = 2; taken.contains(name.toLower()) || is_system_file(name); ++number) {
        const QString there = taken.value(name.toLower());
        if (!there.isEmpty() && same_bytes(folder.filePath(there), file)) return prefix + there;
        name = clean.completeBaseName() + u'-' + QString::number(number) + ending;
    }
    if (const auto written = copy_file(file, folder.filePath(name), IfExists::kFail); !written)
        return std::unexpected(written.error());
    return prefix + name;
}

FileResult<QString> bring_picture_into_website(const QString& picture, const QString& website_folder) {
    return bring_file_into_website(picture, website_folder, kPictureFolder);
}

}  // namespace pondera
