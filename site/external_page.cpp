#include "site/external_page.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

#include "base/character_references.h"
#include "base/tag_walk.h"
#include "base/text_file.h"
#include "site/external_code.h"
#include "site/external_files.h"
#include "site/media_files.h"
#include "site/page_name.h"
#include "site/script_strings.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 63;

/// The addresses of a page as they become those of a page of the Website.
class AddressChange {
  public:
    AddressChange(const ExternalPage& page, const ExternalFolder& folder, ExternalFiles& files)
        : published_(page_file_name(PageKind::kExternal, page.name)),
          website_(page.website_folder),
          folder_(folder),
          files_(files) {}

    QString run(const QString& text) {
        const QString page = without_base(text);
        find_hints(page);
        return with_replaced_addresses(page, page_references(page),
                                       [this](const PageReference& reference) { return replacement(reference); });
    }

    /// The links that stay as they are, each once.
    [[nodiscard]] QStringList own_links() const {
        QStringList links = own_links_;
        links.removeDuplicates();
        return links;
    }

  private:
    /// Takes the address out of the BASE tag: the page's own place is its base from now on.
    QString without_base(const QString& text) {
        TagWalk walk(text);
        while (const auto tag = walk.next()) {
            if (tag->name != u"BASE") continue;
            const QStringView tag_text = QStringView(text).first(tag->end).sliced(tag->begin);
            const auto href = find_attribute(tag_text, u"href");
            if (!href) continue;
            base_ = resolve_character_references(attribute_value(tag_text, u"href")).trimmed();
            base_is_in_web_ = resolve_address(base_, {}).place == AddressTarget::Place::kWeb;
            const qsizetype end = href->value_end + (href->quote.isNull() ? 0 : 1);
            return QString(text).remove(tag->begin + href->name_begin, end - href->name_begin);
        }
        return text;
    }

    /// Finds the scripts and the LINK tags, by where they begin and end.
    void find_hints(const QString& page) {
        TagWalk walk(page);
        qsizetype script = -1;
        while (const auto tag = walk.next()) {
            if (script >= 0) hints_.append({script, tag->begin});
            script = tag->name == u"SCRIPT" ? tag->end : -1;
            if (tag->name == u"LINK") hints_.append({tag->begin, tag->end});
        }
    }

    /// True for what may be an address: a string of a script can be a part of one, and a LINK can be about anything. It
    /// counts when it leads to a file.
    [[nodiscard]] bool is_hint(const PageReference& reference) const {
        if (reference.kind == ReferenceKind::kStyleSheet) return false;
        const auto after =
            std::ranges::upper_bound(hints_, reference.begin, {}, &std::pair<qsizetype, qsizetype>::first);
        return after != hints_.begin() && reference.begin < std::prev(after)->second;
    }

    std::optional<QString> replacement(const PageReference& reference) {
        const bool hint = is_hint(reference);
        if (base_is_in_web_) return hint ? std::nullopt : web_address(reference.address);
        const QString address = with_base(reference.address);
        const auto file = folder_.file_at(address);
        if (!file || (hint && file->isEmpty())) return std::nullopt;

        // A small picture is often a link to its large one.
        const ReferenceKind content = kind_of_file(*file).value_or(reference.kind);
        const bool shown = content == ReferenceKind::kPicture || content == ReferenceKind::kMedia;
        const ReferenceKind kind = hint || shown ? content : reference.kind;
        if (kind == ReferenceKind::kLink || kind == ReferenceKind::kFrame) return link(address, *file);
        const auto path = files_.bring(address, kind);
        return path ? std::optional(*path + anchor_of(address)) : std::nullopt;
    }

    /// Where an address leads on a page whose addresses count from a place in the web.
    [[nodiscard]] std::optional<QString> web_address(const QString& address) const {
        if (!is_relative(address) && !address.startsWith(u'/')) return std::nullopt;
        return QString::fromLatin1(QUrl(base_).resolved(QUrl(address)).toEncoded()).replace(u'&', u"&amp;"_s);
    }

    [[nodiscard]] QString with_base(const QString& address) const {
        return is_relative(address) ? base_.first(base_.lastIndexOf(u'/') + 1) + address : address;
    }

    static bool is_relative(const QString& address) {
        const AddressTarget::Place place = resolve_address(address, {}).place;
        return place == AddressTarget::Place::kWebsite ||
               (place == AddressTarget::Place::kOutside && address.startsWith(u'.'));
    }

    /// A link to a place on the page itself follows the page; one to another page or file on this computer stays.
    std::optional<QString> link(const QString& address, const QString& file) {
        if (file == folder_.page()) return address_of(published_) + anchor_of(address);
        const AddressTarget target = resolve_address(address, {});
        const bool stands_there =
            target.place == AddressTarget::Place::kWebsite && QFileInfo::exists(QDir(website_).filePath(target.file));
        if (!stands_there) own_links_ += address;
        return std::nullopt;
    }

    QString published_;
    QString website_;
    const ExternalFolder& folder_;
    ExternalFiles& files_;
    QString base_;
    bool base_is_in_web_ = false;
    QList<std::pair<qsizetype, qsizetype>> hints_;
    QStringList own_links_;
};

/// Takes away what forbids a browser to use files that came from elsewhere: checksums of style sheets and scripts,
/// which have other addresses now, and the page's rule on where they may come from.
QString without_origin_checks(const QString& text) {
    static const QRegularExpression kChecks(
        u"\\s(?:integrity|crossorigin)(?:\\s*=\\s*(?:\"[^\"]*\"|'[^']*'|[^\\s>]*))?(?=[\\s/>])"_s,
        QRegularExpression::CaseInsensitiveOption);
    QString result;
    qsizetype copied = 0;
    TagWalk walk(text);
    while (const auto place = walk.next()) {
        QString tag = text.sliced(place->begin, place->end - place->begin);
        const QStringView address = attribute_value(tag, place->name == u"LINK" ? u"href" : u"src");
        if (place->name == u"META" &&
            attribute_value(tag, u"http-equiv").compare(u"Content-Security-Policy", Qt::CaseInsensitive) == 0)
            tag.clear();
        else if (address.startsWith(u"media/"))
            tag.remove(kChecks);
        else
            continue;
        result.append(QStringView(text).first(place->begin).sliced(copied)).append(tag);
        copied = place->end;
    }
    return result.append(QStringView(text).sliced(copied));
}

}  // namespace

QString external_page_name(const QString& file) {
    const QFileInfo info(file);
    const QString own = strip_estensione(info.fileName());
    // Every Website has an index of its own.
    const bool index = own.compare(u"index"_s, Qt::CaseInsensitive) == 0;
    QString name = clean_file_name(index ? info.absoluteDir().dirName() : strip_tutto(own), u"External"_s);
    name = name.remove(u'.').replace(u'_', u'-').replace(u"111"_s, u"11"_s);
    return name.first(std::min(kLongestName, name.size()));
}

FileResult<BroughtPage> bring_page_into_website(const ExternalPage& page) {
    const auto file = read_text_file(page.file);
    if (!file) return std::unexpected(file.error());
    const ExternalFolder folder(page.file);
    ExternalFiles files(folder, page.website_folder);
    AddressChange change(page, folder, files);
    QString text = without_origin_checks(change.run(file->text));
    text = with_code_in_files(text, page.name, file->encoding, files);

    const QString published = page_file_name(PageKind::kExternal, page.name);
    const QString copy = QDir(page.website_folder).filePath(editing_copy_name(published));
    if (const auto written = write_text_file(copy, text, file->encoding); !written)
        return std::unexpected(written.error());
    return BroughtPage{published, files.left_out(), change.own_links()};
}

}  // namespace pondera
