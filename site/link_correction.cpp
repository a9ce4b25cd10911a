#include "site/link_correction.h"

#include <QDir>
#include <QHash>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <array>

#include "base/character_references.h"
#include "base/files.h"
#include "base/text_file.h"
#include "site/interface_models.h"
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

/// The longest piece of a name that any spelling of it leaves as it is: plain letters, digits and the like.
QByteArray plain_run(const QString& name) {
    QByteArray longest;
    QByteArray run;
    for (const QChar c : name + u' ') {
        if (c.unicode() < 0x80 && (c.isLetterOrNumber() || QStringView(u"_-.").contains(c))) {
            run += c.toLatin1();
        } else {
            if (run.size() > longest.size()) longest = run;
            run.clear();
        }
    }
    return longest;
}

/// The moves of a correction, by the names that links may have.
class MovedPages {
  public:
    /// `taken` are names that differ from a moved one in case only and have files of their own.
    MovedPages(const QList<PageMove>& moves, const QString& website, const QSet<QString>& taken = {})
        : website_(website), taken_(taken) {
        for (const PageMove& move : moves) {
            if (move.from == move.to) continue;
            exact_.insert(move.from, move.to);
            any_case_.insert(move.from.toCaseFolded(), move.to);
            runs_.insert(plain_run(move.from));
        }
    }

    [[nodiscard]] bool are_none() const { return exact_.isEmpty(); }

    /// The new name of the page that an address leads to, empty when that has not moved.
    [[nodiscard]] QString new_name(const QString& address) const {
        const AddressTarget target = resolve_address(address, website_);
        if (target.place != AddressTarget::Place::kWebsite) return {};
        if (const auto hit = exact_.constFind(target.file); hit != exact_.constEnd()) return *hit;
        return taken_.contains(target.file) ? QString() : any_case_.value(target.file.toCaseFolded());
    }

    /// False for the bytes of a file that certainly holds none of the names, in no spelling.
    [[nodiscard]] bool may_be_in(const QByteArray& bytes) const {
        const bool wide = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
        if (wide || std::ranges::any_of(runs_, [&](const QByteArray& run) { return bytes.contains(run); })) return true;
        const QByteArray lower = bytes.toLower();
        return std::ranges::any_of(runs_, [&](const QByteArray& run) { return lower.contains(run.toLower()); });
    }

    /// False when the encoding lacks a character of one of the new names.
    [[nodiscard]] bool fit(TextEncoding encoding) const {
        return std::ranges::all_of(
            exact_, [&](const QString& name) { return decode_text(encode_text(name, encoding)).text == name; });
    }

  private:
    QString website_;
    QSet<QString> taken_;
    QHash<QString, QString> exact_;
    QHash<QString, QString> any_case_;
    QSet<QByteArray> runs_;
};

QString spelled(const QString& name, QStringView old_name, Spelling spelling) {
    if (spelling == Spelling::kPlainLetters) return QString::fromLatin1(QUrl::toPercentEncoding(name));
    const bool quotable = std::ranges::none_of(name, [](QChar c) { return QStringView(u"'\"\\").contains(c); });
    return spelling == Spelling::kAsWritten && !old_name.contains(u'%') && quotable ? name : address_of(name);
}

QString with_moved_references(const QString& text, const QList<PageReference>& references, const MovedPages& moved,
                              Spelling spelling) {
    QString result;
    qsizetype copied = 0;
    for (const PageReference& reference : references) {
        const QString name = moved.new_name(reference.address);
        if (name.isEmpty()) continue;
        const QStringView written = QStringView(text).first(reference.end).sliced(reference.begin);
        const auto [begin, end] = name_in_address(written);
        const QString old_name = resolve_character_references(written.first(end).sliced(begin));
        if (moved.new_name(old_name) != name) continue;
        result.append(QStringView(text).first(reference.begin + begin).sliced(copied));
        result.append(spelled(name, written.first(end).sliced(begin), spelling));
        copied = reference.begin + end;
    }
    return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

enum class FileKind { kPage, kSettings };

QString corrected(const TextFile& file, FileKind kind, const MovedPages& moved) {
    const bool fits = moved.fit(file.encoding);
    if (kind == FileKind::kPage)
        return with_moved_references(file.text, page_references(file.text), moved,
                                     fits ? Spelling::kAddress : Spelling::kPlainLetters);
    return with_moved_references(file.text, script_references(file.text), moved,
                                 fits ? Spelling::kAsWritten : Spelling::kPlainLetters);
}

/// Corrects one file; true when it was changed.
FileResult<bool> correct_file(const QString& path, FileKind kind, const MovedPages& moved) {
    const auto bytes = read_file(path);
    if (!bytes) return std::unexpected(bytes.error());
    if (!moved.may_be_in(*bytes)) return false;
    const TextFile file = decode_text(*bytes);
    const QString text = corrected(file, kind, moved);
    if (text == file.text) return false;
    if (auto replaced = replace_file(path, encode_text(text, file.encoding)); !replaced)
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
    return with_moved_references(page_text, page_references(page_text), MovedPages(moves, website), Spelling::kAddress);
}

/// Corrects the links to pages that were moved.
CorrectedLinks Correzione_Links(const QString& website_folder, const QList<PageMove>& moves, const Steps& steps) {
    const QDir website(website_folder);
    const QStringList names = website.entryList(QDir::Files, QDir::Unsorted);
    const MovedPages moved(moves, website.dirName(), names_beside(moves, names));
    CorrectedLinks result;
    if (moved.are_none()) return result;
    const QList<LinkFile> files = files_with_links(website, names);
    const auto total = static_cast<int>(files.size());
    for (int done = 0; done < total; ++done) {
        const auto changed = correct_file(files[done].path, files[done].kind, moved);
        if (!changed) result.failures += changed.error();
        result.files += changed.value_or(false) ? 1 : 0;
        if (total < 100 || (done + 1) * 100LL / total != done * 100LL / total) (void)go_on(steps, done + 1, total);
    }
    return result;
}

}  // namespace pondera
