#include "site/external_files.h"

#include <QFileInfo>
#include <QUrl>

#include "base/files.h"
#include "base/text.h"
#include "base/text_file.h"
#include "site/media_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostFiles = 500;
const QString kStyleTag = u"<STYLE>"_s;

enum class Content { kNone, kPicture, kStyle, kScript, kFont, kVideo, kAudio };

Content content_of(const QString& file_name) {
    static const QHash<QString, Content> kEndings = [] {
        QHash<QString, Content> endings;
        for (const auto& [content, words] :
             {std::pair{Content::kPicture, u"gif jpg jpeg jpe jfif png apng webp avif bmp ico cur svg"_s},
              std::pair{Content::kStyle, u"css"_s}, std::pair{Content::kScript, u"js mjs"_s},
              std::pair{Content::kFont, u"woff woff2 ttf otf eot"_s},
              std::pair{Content::kVideo, u"mp4 m4v webm ogv mov avi mpg mpeg wmv flv swf vtt"_s},
              std::pair{Content::kAudio, u"mp3 m4a ogg oga wav aac flac opus wma mid midi"_s}})
            for (const QString& ending : words.split(u' ')) endings.insert(ending, content);
        return endings;
    }();
    return kEndings.value(QFileInfo(file_name).suffix().toLower(), Content::kNone);
}

QString folder_for(const QString& file_name) {
    const Content content = content_of(file_name);
    if (content == Content::kVideo) return u"media/video"_s;
    return content == Content::kAudio ? u"media/audio"_s : kPictureFolder;
}

/// The ending that a picture's first bytes call for, empty for what is no picture.
QString picture_ending(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray begin = file.read(12);
    if (begin.startsWith("GIF8")) return u".gif"_s;
    if (begin.startsWith("\x89PNG")) return u".png"_s;
    if (begin.startsWith("\xFF\xD8\xFF")) return u".jpg"_s;
    return begin.startsWith("RIFF") && begin.endsWith("WEBP") ? u".webp"_s : QString();
}

}  // namespace

QString with_replaced_addresses(const QString& text, const QList<PageReference>& references,
                                const std::function<std::optional<QString>(const PageReference&)>& replacement) {
    QString result;
    qsizetype copied = 0;
    for (const PageReference& reference : references) {
        const auto address = replacement(reference);
        if (!address) continue;
        result.append(QStringView(text).first(reference.begin).sliced(copied)).append(*address);
        copied = reference.end;
    }
    return result.append(QStringView(text).sliced(copied));
}

QList<PageReference> style_references(const QString& style) {
    QList<PageReference> references = page_references(kStyleTag + style);
    for (PageReference& reference : references) {
        reference.begin -= kStyleTag.size();
        reference.end -= kStyleTag.size();
    }
    return references;
}

QString address_from_styles(const QString& path) {
    const QString own = kPictureFolder + u'/';
    if (path.startsWith(own)) return path.sliced(own.size());
    return path.startsWith(u"media/"_s) ? u"../"_s + path.sliced(6) : u"../../"_s + path;
}

QString anchor_of(const QString& address) {
    const qsizetype hash = address.indexOf(u'#');
    if (hash < 0) return {};
    // What is encoded already stays as it is.
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(address.sliced(hash + 1), ":?=/"));
    return u'#' + replace_all(encoded, u"%25"_s, u"%"_s);
}

ExternalFiles::ExternalFiles(const ExternalFolder& folder, QString website_folder)
    : folder_(folder), website_folder_(std::move(website_folder)) {
}

std::optional<QString> ExternalFiles::bring(const QString& address, ReferenceKind kind, const QString& subfolder) {
    const auto file = folder_.file_at(address, subfolder);
    if (!file) return std::nullopt;
    const QString path = file->isEmpty() ? QString() : brought(*file, kind);
    if (!path.isEmpty()) return path;
    left_out_ += address;
    return std::nullopt;
}

QString ExternalFiles::brought(const QString& file, ReferenceKind kind) {
    if (const auto known = brought_.constFind(file); known != brought_.constEnd()) return *known;
    if (brought_.size() >= kMostFiles) return {};
    brought_.insert(file, {});  // where a style sheet imports itself it stays as it is
    const QString name = name_for(file, kind);
    if (name.isEmpty()) return {};
    const QString path = content_of(name) == Content::kStyle ? bring_style(file, name) : bring_as(file, name);
    brought_.insert(file, path);
    return path;
}

/// The name that a file comes in under; empty for one that does not.
QString ExternalFiles::name_for(const QString& file, ReferenceKind kind) const {
    QString name = QFileInfo(file).fileName();
    if (name.endsWith(u".download"_s, Qt::CaseInsensitive)) name.chop(9);
    const Content content = content_of(name);
    if (kind == ReferenceKind::kStyleSheet || kind == ReferenceKind::kScript) {
        const bool style = kind == ReferenceKind::kStyleSheet;
        if (content == (style ? Content::kStyle : Content::kScript)) return name;
        return folder_.saved_with_page(file) ? name + (style ? u".css"_s : u".js"_s) : QString();
    }
    if (content == Content::kStyle || content == Content::kScript) return {};
    if (content != Content::kNone) return name;
    const QString ending = picture_ending(folder_.path(file));
    return ending.isEmpty() ? QString() : name + ending;
}

QString ExternalFiles::bring_style(const QString& file, const QString& name) {
    const auto style = read_text_file(folder_.path(file));
    if (!style) return {};
    const QString subfolder = file.contains(u'/') ? file.section(u'/', 0, -2) : QString();
    const QString text = with_replaced_addresses(
        style->text, style_references(style->text), [&](const PageReference& reference) -> std::optional<QString> {
            const auto path = bring(reference.address, reference.kind, subfolder);
            if (!path) return std::nullopt;
            return address_from_styles(*path) + anchor_of(reference.address);
        });
    return bring_text(encode_text(text, style->encoding), name);
}

QString ExternalFiles::bring_as(const QString& file, const QString& name) {
    QString path = folder_.path(file);
    if (QFileInfo(file).fileName() != name) {
        const QString renamed = renamed_.filePath(name);
        if (!copy_file(path, renamed, IfExists::kReplace)) return {};
        path = renamed;
    }
    return bring_file_into_website(path, website_folder_, folder_for(name)).value_or(QString());
}

QStringList ExternalFiles::left_out() const {
    QStringList addresses = left_out_;
    addresses.removeDuplicates();
    return addresses;
}

QString ExternalFiles::bring_text(const QByteArray& text, const QString& name) {
    if (++texts_ > kMostFiles) return {};
    const QString file = renamed_.filePath(name);
    if (!write_file(file, text)) return {};
    return bring_file_into_website(file, website_folder_, kPictureFolder).value_or(QString());
}

}  // namespace pondera
