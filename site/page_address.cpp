#include <QUrl>

#include <algorithm>
#include <optional>

#include "base/text_file.h"
#include "site/page_name.h"
#include "site/page_references.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

using Place = AddressTarget::Place;

/// The scheme that an address begins with, empty when it has none.
QStringView scheme_of(QStringView address) {
    const auto is_part = [](QChar c) {
        return c.unicode() < 0x80 && (c.isLetterOrNumber() || c == u'+' || c == u'-' || c == u'.');
    };
    const auto length = std::ranges::find_if_not(address, is_part) - address.begin();
    const bool scheme = length > 0 && length < address.size() && address[0].isLetter() &&
                        (address[length] == u':' || (length == 1 && address[length] == u'|'));
    return scheme ? address.first(length) : QStringView();
}

bool is_separator(QChar c) {
    return c == u'/' || c == u'\\';
}

/// Where an address leads that does not go by folders from the page.
std::optional<Place> place_elsewhere(QStringView address) {
    const QStringView scheme = scheme_of(address);
    if (scheme.size() == 1 || scheme.compare(u"file", Qt::CaseInsensitive) == 0) return Place::kOutside;
    if (scheme.compare(u"javascript", Qt::CaseInsensitive) == 0) return Place::kNowhere;
    if (!scheme.isEmpty() || address.startsWith(u"//")) return Place::kWeb;
    if (is_separator(address.front())) return Place::kOutside;
    return std::nullopt;
}

/// A byte that stands percent-encoded at `at`.
std::optional<char> encoded_byte(QStringView text, qsizetype at) {
    if (at + 2 >= text.size() || text[at] != u'%') return std::nullopt;
    bool valid = false;
    const int byte = text.sliced(at + 1, 2).toInt(&valid, 16);
    if (!valid || !text[at + 1].isLetterOrNumber()) return std::nullopt;
    return static_cast<char>(byte);
}

/// A text without percent-encoding; runs of bytes that are no UTF-8 are windows-1252.
QString decoded(QStringView text) {
    if (!text.contains(u'%')) return text.toString();
    QString result;
    for (qsizetype at = 0; at < text.size();) {
        QByteArray bytes;
        for (auto byte = encoded_byte(text, at); byte; byte = encoded_byte(text, at += 3)) bytes += *byte;
        const bool ascii =
            std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
        if (bytes.isEmpty())
            result += text[at++];
        else
            result += ascii ? QString::fromLatin1(bytes) : decode_text(bytes).text;
    }
    return result;
}

/// An editing mark that a change of code page damaged: "?_4_Trips.htm" and "'_4_Trips.htm" are published as
/// "_4_Trips.htm".
bool begins_with_damaged_mark(QStringView name) {
    return name.size() > 4 && (name[0] == u'?' || name[0] == u'\'') && name[1] == u'_' &&
           QStringView(u"423y").contains(name[2]) && name[3] == u'_';
}

QString without_editing_mark(const QString& name) {
    if (name.startsWith(u'§') || begins_with_damaged_mark(name)) return name.sliced(1);
    return name.startsWith(u'ç') && is_home_page(name.toLower()) ? name.sliced(1) : name;
}

/// The place of the query's "?"; that of a damaged editing mark is none.
qsizetype query_begin(QStringView path) {
    for (qsizetype at = path.indexOf(u'?'); at >= 0; at = path.indexOf(u'?', at + 1)) {
        const bool begins_name = at == 0 || is_separator(path[at - 1]);
        if (!begins_name || !begins_with_damaged_mark(path.sliced(at))) return at;
    }
    return path.size();
}

/// The file that a path leads to from the Website's folder; nullopt when it leads out of it.
std::optional<QString> file_of(QString path, const QString& website) {
    path.replace(u'\\', u'/');
    QStringList folders;
    bool above = false;
    for (const QString& step : path.split(u'/', Qt::SkipEmptyParts)) {
        if (step == u".") continue;
        if (above && step.compare(website, Qt::CaseInsensitive) != 0) return std::nullopt;
        if (above)
            above = false;
        else if (step != u"..")
            folders += step;
        else if (folders.isEmpty())
            above = true;
        else
            folders.removeLast();
    }
    if (above) return std::nullopt;
    if (folders.isEmpty()) return kHomePage;
    folders.last() = without_editing_mark(folders.last());
    return path.endsWith(u'/') ? folders.join(u'/') + u'/' : folders.join(u'/');
}

}  // namespace

AddressTarget resolve_address(const QString& address, const QString& website) {
    const QStringView trimmed = QStringView(address).trimmed();
    if (trimmed.isEmpty() || trimmed == u"#") return {};
    if (const auto place = place_elsewhere(trimmed)) return {*place, {}, {}};
    const qsizetype hash = trimmed.indexOf(u'#');
    const QStringView before_anchor = hash < 0 ? trimmed : trimmed.first(hash);
    const QString anchor = hash < 0 ? QString() : decoded(trimmed.sliced(hash + 1));
    const QStringView path = before_anchor.first(query_begin(before_anchor));
    if (path.isEmpty()) return {Place::kThisPage, {}, anchor};
    const auto file = file_of(decoded(path), website);
    if (!file) return {Place::kOutside, {}, {}};
    return {Place::kWebsite, *file, anchor};
}

QString address_of(const QString& file) {
    QString address;
    for (const char32_t c : file.toStdU32String()) {
        const QString character = QString::fromUcs4(&c, 1);
        const bool plain = c < 0x80 ? QStringView(u"-_.~/").contains(character) || character[0].isLetterOrNumber()
                                    : QChar::isLetterOrNumber(c) || QChar::isMark(c);
        address += plain ? character : QString::fromLatin1(QUrl::toPercentEncoding(character));
    }
    return address;
}

}  // namespace pondera
