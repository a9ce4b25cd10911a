#include "base/character_references.h"

#include <algorithm>
#include <array>
#include <optional>

namespace pondera {

namespace {

/// The names of the characters 160 to 255.
constexpr std::array<QStringView, 96> kLatin1{
    u"nbsp",   u"iexcl",  u"cent",   u"pound",  u"curren", u"yen",    u"brvbar", u"sect",   u"uml",    u"copy",
    u"ordf",   u"laquo",  u"not",    u"shy",    u"reg",    u"macr",   u"deg",    u"plusmn", u"sup2",   u"sup3",
    u"acute",  u"micro",  u"para",   u"middot", u"cedil",  u"sup1",   u"ordm",   u"raquo",  u"frac14", u"frac12",
    u"frac34", u"iquest", u"Agrave", u"Aacute", u"Acirc",  u"Atilde", u"Auml",   u"Aring",  u"AElig",  u"Ccedil",
    u"Egrave", u"Eacute", u"Ecirc",  u"Euml",   u"Igrave", u"Iacute", u"Icirc",  u"Iuml",   u"ETH",    u"Ntilde",
    u"Ograve", u"Oacute", u"Ocirc",  u"Otilde", u"Ouml",   u"times",  u"Oslash", u"Ugrave", u"Uacute", u"Ucirc",
    u"Uuml",   u"Yacute", u"THORN",  u"szlig",  u"agrave", u"aacute", u"acirc",  u"atilde", u"auml",   u"aring",
    u"aelig",  u"ccedil", u"egrave", u"eacute", u"ecirc",  u"euml",   u"igrave", u"iacute", u"icirc",  u"iuml",
    u"eth",    u"ntilde", u"ograve", u"oacute", u"ocirc",  u"otilde", u"ouml",   u"divide", u"oslash", u"ugrave",
    u"uacute", u"ucirc",  u"uuml",   u"yacute", u"thorn",  u"yuml"};

struct Named {
    QStringView name;
    char32_t character;
};
constexpr std::array kMarkup{Named{u"amp", U'&'}, Named{u"lt", U'<'}, Named{u"gt", U'>'}, Named{u"quot", U'"'},
                             Named{u"apos", U'\''}};

std::optional<char32_t> named_character(QStringView name) {
    if (const auto* hit = std::ranges::find(kMarkup, name, &Named::name); hit != kMarkup.end()) return hit->character;
    if (const auto* hit = std::ranges::find(kLatin1, name); hit != kLatin1.end())
        return static_cast<char32_t>(160 + (hit - kLatin1.begin()));
    return std::nullopt;
}

struct Reference {
    char32_t character;
    qsizetype length;
};

/// The reference that `text` begins with.
std::optional<Reference> reference_at(QStringView text) {
    constexpr qsizetype kLongest = 12;
    const QStringView start = text.first(std::min(text.size(), kLongest));
    const bool numeric = start.size() > 2 && start[1] == u'#';
    const bool hexadecimal = numeric && start[2].toLower() == u'x';
    const qsizetype begin = hexadecimal ? 3 : numeric ? 2 : 1;
    qsizetype end = begin;
    while (end < start.size() && start[end].unicode() < 0x80 && start[end].isLetterOrNumber() &&
           (!numeric || hexadecimal || start[end].isDigit()))
        ++end;
    const QStringView body = start.first(end).sliced(begin);
    const bool closed = end < start.size() && start[end] == u';';
    if (!numeric) {
        const auto character = closed ? named_character(body) : std::nullopt;
        if (!character) return std::nullopt;
        return Reference{*character, end + 1};
    }
    bool valid = false;
    const uint number = body.toUInt(&valid, hexadecimal ? 16 : 10);
    if (!valid || number == 0 || number > QChar::LastValidCodePoint || QChar::isSurrogate(number)) return std::nullopt;
    return Reference{number, closed ? end + 1 : end};
}

}  // namespace

QString resolve_character_references(QStringView markup) {
    qsizetype hit = markup.indexOf(u'&');
    if (hit < 0) return markup.toString();
    QString text;
    qsizetype copied = 0;
    for (; hit >= 0; hit = markup.indexOf(u'&', hit)) {
        const auto reference = reference_at(markup.sliced(hit));
        if (!reference) {
            ++hit;
            continue;
        }
        text.append(markup.first(hit).sliced(copied)).append(QStringView(QChar::fromUcs4(reference->character)));
        hit += reference->length;
        copied = hit;
    }
    return text.append(markup.sliced(copied));
}

}  // namespace pondera
