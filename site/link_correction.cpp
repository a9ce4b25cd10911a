#include "site/link_correction.h"

#include <QDir>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <array>
#include <optional>

#include "base/bulk_replacement.h"
#include "base/character_references.h"
#include "base/text_file.h"
#include "site/interface_models.h"
#include "site/moved_names.h"
#include "site/page_name.h"
#include "site/page_references.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// How new names are written: as addresses; as the old one was, in settings files ("List1_0 = _4_My Trips.htm"); or in
/// plain letters only, where the file's encoding lacks one of them.
enum class Spelling { kAddress, kAsWritten, kPlainLetters };

bool is_address_end(QChar c) {
    return c == u'?' || c == u'#';
}

/// The editing mark that a written file name begins with, in any of its spellings.
qsizetype mark_length(QStringView name) {
    static constexpr std::array<QStringView, 7> kMarks{u"§", u"&sect;", u"&#167;", u"&#xA7;", u"%C2%A7", u"%A7", u"?"};
    for (const QStringView mark : kMarks)
        if (name.startsWith(mark, Qt::CaseInsensitive)) return mark.size();
    return name.startsWith(u'\'') ? 1 : 0;
}

/// Where the file name stands in an address as written: behind its folders and its editing mark, before its query and
/// anchor. The "#" of a character reference ends nothing, nor does the "?" that a mark was damaged to.
std::pair<qsizetype, qsizetype> name_in_address(QStringView written) {
    qsizetype begin = 0;
    qsizetype at = mark_length(written);
    while (at < written.size()) {
        if (written[at] == u'/' || written[at] == u'\\') {
            begin = ++at;
            at += mark_length(written.sliced(at));
        } else if (is_address_end(written[at]) && !(written[at] == u'#' && written[at - 1] == u'&')) {
            break;
        } else {
            ++at;
        }
    }
    return {begin + mark_length(written.sliced(begin)), at};
}

QString spelled(const QString& name, QStringView old_name, Spelling spelling) {
    if (spelling == Spelling::kPlainLetters) return QString::fromLatin1(QUrl::toPercentEncoding(name));
    const bool quotable = std::ranges::none_of(name, [](QChar c) { return QStringView(u"'\"\\").contains(c); });
    return spelling == Spelling::kAsWritten && !old_name.contains(u'%') && quotable ? name : address_of(name);
}

/// A text with the references to moved pages changed; nullopt when it holds none.
std::optional<QString> with_moved_references(const QString& text, const QList<PageReference>& references,
                                             const MovedNames& moved, Spelling spelling) {
    QString result;
    qsizetype copied = 0;
    for (const PageReference& reference : references) {
        const QString name = moved.new_name(reference.address);
        if (name.isEmpty()) continue;
        const QStringView written = QStringView(text).first(reference.end).sliced(reference.begin);
        const auto [begin, end] = name_in_address(written);
        const QString old_name = resolve_character_references(written.first(end).sliced(begin));
        if (moved.new_name(old_name) != name) continue;
        if (copied == 0) result.reserve(text.size() + text.size() / 16);
        result.append(QStringView(text).first(reference.begin + begin).sliced(copied));
        result.append(spelled(name, written.first(end).sliced(begin), spelling));
        copied = reference.begin + end;
    }
    if (copied == 0) return std::nullopt;
    return result.append(QStringView(text).sliced(copied));
}

enum class FileKind { kPage, kSettings };

std::optional<QString> corrected(const TextFile& file, FileKind kind, const MovedNames& moved) {
    const bool fits = moved.fit(file.encoding);
    if (kind == FileKind::kPage)
        return with_moved_references(file.text, page_references_at(file.text, moved.places_in(file.text)), moved,
                                     fits ? Spelling::kAddress : Spelling::kPlainLetters);
    return with_moved_references(file.text, script_references(file.text), moved,
                                 fits ? Spelling::kAsWritten : Spelling::kPlainLetters);
}

/// Corrects one file; true when it was changed.
FileResult<bool> correct_file(BulkReplacement& replacement, const QString& path, FileKind kind,
                              const MovedNames& moved) {
    const auto bytes = read_file(path);
    if (!bytes) return std::unexpected(bytes.error());
    if (!moved.may_be_in(*bytes)) return false;
    const TextFile file = decode_text(*bytes);
    const auto text = corrected(file, kind, moved);
    if (!text) return false;
    if (auto replaced = replacement.replace(path, *bytes, encode_text(*text, file.encoding)); !replaced)
        return std::unexpected(replaced.error());
    return true;
}

struct LinkFile {
    QString path;
    FileKind kind = FileKind::kPage;
};

bool is_card_template(const QString& file) {
    return file == card_file_name(1) || file == card_file_name(2);
}

/// The files of a Website that hold links to its pages.
QList<LinkFile> files_with_links(const QDir& website, const QStringList& files) {
    QList<LinkFile> found;
    for (const QString& file : files)
        if (is_page_file(file) && !is_card_template(file)) found += {website.filePath(file), FileKind::kPage};
    const QDir settings(website.filePath(u"media/img"_s));
    for (const QString& file : settings.entryList({u"*.js"_s, u"*.txt"_s}, QDir::Files)) {
        const bool fragment = file.startsWith(u"External_HTML_"_s);
        found += {settings.filePath(file), fragment ? FileKind::kPage : FileKind::kSettings};
    }
    return found;
}

/// The published names that only their case tells from a moved one.
QSet<QString> names_beside(const QList<PageMove>& moves, const QStringList& files) {
    QSet<QString> moved;
    QSet<QString> folded;
    for (const PageMove& move : moves) {
        moved.insert(move.from);
        folded.insert(move.from.toCaseFolded());
    }
    QSet<QString> beside;
    for (const QString& file : files)
        if (const QString name = published_name(file); folded.contains(name.toCaseFolded()) && !moved.contains(name))
            beside.insert(name);
    return beside;
}

}  // namespace

QString with_corrected_links(const QString& page_text, const QList<PageMove>& moves, const QString& website) {
    const MovedNames moved(moves, website);
    return with_moved_references(page_text, page_references_at(page_text, moved.places_in(page_text)), moved,
                                 Spelling::kAddress)
        .value_or(page_text);
}

/// Corrects the links to pages that were moved.
CorrectedLinks Correzione_Links(const QString& website_folder, const QList<PageMove>& moves, const Steps& steps) {
    const QDir website(website_folder);
    const QStringList names = website.entryList(QDir::Files, QDir::Unsorted);
    const MovedNames moved(moves, website.dirName(), names_beside(moves, names));
    CorrectedLinks result;
    if (moved.are_none()) return result;
    const QList<LinkFile> files = files_with_links(website, names);
    const auto total = static_cast<int>(files.size());
    BulkReplacement replacement(website_folder);
    for (int done = 0; done < total; ++done) {
        const auto changed = correct_file(replacement, files[done].path, files[done].kind, moved);
        if (!changed) result.failures += changed.error();
        result.files += changed.value_or(false) ? 1 : 0;
        if (total < 100 || (done + 1) * 100LL / total != done * 100LL / total) (void)go_on(steps, done + 1, total);
    }
    return result;
}

}  // namespace pondera
