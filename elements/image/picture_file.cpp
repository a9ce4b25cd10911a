#include "elements/image/picture_file.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

#include "base/files.h"
#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kPictureFolder = u"media/img"_s;

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

/// The entries of a folder by their lower-case names.
QHash<QString, QString> entries_by_lower_name(const QString& folder) {
    QHash<QString, QString> entries;
    for (const QString& entry : QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        entries.insert(entry.toLower(), entry);
    return entries;
}

}  // namespace

QString clean_file_name(const QString& file_name) {
    const qsizetype dot = file_name.lastIndexOf(u'.');
    QString base = clean_characters(dot > 0 ? file_name.first(dot) : file_name);
    const QString ending = dot > 0 ? clean_characters(file_name.sliced(dot + 1)) : QString();
    while (base.startsWith(u'.') || base.startsWith(u'-')) base.remove(0, 1);
    while (base.endsWith(u'.') || base.endsWith(u'-')) base.chop(1);
    if (base.isEmpty()) base = u"image"_s;
    return ending.isEmpty() ? base : base + u'.' + ending;
}

FileResult<QString> bring_picture_into_website(const QString& picture, const QString& website_folder) {
    const QFileInfo source(picture);
    if (!QFileInfo(website_folder).isDir())
        return std::unexpected(FileError{FaultNumber::kPathNotFound, QDir::toNativeSeparators(website_folder), {}});

    const QDir website(QFileInfo(website_folder).canonicalFilePath());
    const QString relative = website.relativeFilePath(source.canonicalFilePath());
    const bool is_inside = !relative.startsWith(u"../"_s) && QDir::isRelativePath(relative);
    if (source.exists() && is_inside && is_clean_path(relative)) return relative;

    const auto bytes = read_file(picture);
    if (!bytes) return std::unexpected(bytes.error());
    const QString folder = website.filePath(kPictureFolder);
    if (const auto made = create_folders(folder); !made) return std::unexpected(made.error());

    const QFileInfo clean(clean_file_name(source.fileName()));
    const QString ending = clean.suffix().isEmpty() ? QString() : u'.' + clean.suffix();
    const auto entries = entries_by_lower_name(folder);
    QString name = clean.fileName();
    for (int number = 2; entries.contains(name.toLower()); ++number) {
        const QString& taken = entries[name.toLower()];
        const auto there = read_file(QDir(folder).filePath(taken));
        if (there && *there == *bytes) return kPictureFolder + u'/' + taken;
        name = clean.completeBaseName() + u'-' + QString::number(number) + ending;
    }
    if (const auto written = copy_file(picture, QDir(folder).filePath(name), IfExists::kFail); !written)
        return std::unexpected(written.error());
    return kPictureFolder + u'/' + name;
}

}  // namespace pondera
