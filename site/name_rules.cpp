#include "site/name_rules.h"

#include <algorithm>

#include "site/page_name.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kShortestName = 3;
constexpr qsizetype kLongestName = 63;

/// Words that generated scripts use as identifiers, and the stems of system files: a page of that name would stand in
/// their way.
const QStringList& reserved_words() {
    static const QStringList words =
        u"ARGUMENTS NAVIGATOR PERCORSO STRINGA OGGETTO LANGUAGE CAMBIA DOCUMENT WIDTH HEIGHT LEFT POSITION IMG "
        u"MEDIA CAMBIA_IMM FUNCTION TITLE HEAD HTML VAR STR_IN EVAL SRC BGSOUND JAVASCRIPT IF THEN ELSE NOMESLIDE "
        u"NAME STYLE SPAN BODY FRECCIA_DX FRECCIA_SX AVANTI IMM IMAGE STEP RETURN SLIDE PLAY ONMOUSEOVER "
        u"ONMOUSEOUT HTM CAMBIA_SIN INDIETRO RIGHT CARD VUOTA NEW MONTHS ARRAY JANUARY FEBRUARY MARCH APRIL MAY "
        u"JUNE JULY AUGUST SEPTEMBER OCTOBER NOVEMBER DECEMBER MONTH DATE GETDAY GETMONTH GETYEAR GETDATE "
        u"GETMINUTES MIN WRITE LMONTH ANNO 1900 SCRIPT FONT DIV STRONG COLOR ARIAL TOP DAYS BACKGROUND 100X100 "
        u"320x240 640x480 a_ova a_ova_on a_rett a_rett_on Access add-to-cart box-home box-pro cart cascade-menu "
        u"details EXT_HTML f_dex f_dex2 f_dex_on f_dex_on2 f_sin f_sin2 f_sin_on f_sin_on2 java_file_fire "
        u"java_file_ie java_file_opera menu_items pocket_flash print printon reference V-T SearchEngine "
        u"sfumato_bianco_nero pnd spacer trasp"_s.split(u' ');
    return words;
}

/// What names may not hold, in the groups that are shown together.
const QList<QStringList>& forbidden_groups() {
    static const QList<QStringList> groups{
        {u" "_s, u"&"_s, u"'"_s},
        {u"ç"_s, u"#"_s, u"§"_s, u";"_s, u":"_s},
        {u"111"_s, u"."_s},
        {u"/"_s, u"\\"_s, u"|"_s},
        {u"<"_s, u">"_s, u"?"_s},
        {u"="_s, u"!"_s, u"£"_s},
        {u"%"_s, u"$"_s, u"("_s, u")"_s},
        {u"{"_s, u"}"_s},
        {u"["_s, u"^"_s, u"]"_s},
        {u"+"_s, u"*"_s, u"°"_s},
        {u"€"_s, u"@"_s},
        {u"\""_s},
    };
    return groups;
}

std::optional<QString> refusal_of_length(const QString& name) {
    if (name.size() >= kShortestName && name.size() <= kLongestName) return std::nullopt;
    return u"Choose a name with at least 3 characters and maximum 63"_s;
}

std::optional<QString> refusal_of_words(const QString& name) {
    const auto offending = Verifica_Nome(name);
    return offending ? std::optional(invalid_name_message(*offending)) : std::nullopt;
}

std::optional<QString> refusal_of_likeness(const QString& name, const QString& website,
                                           const QStringList& other_pages) {
    const QString lower = name.toLower();
    if (!website.isEmpty() && lower.contains(website.toLower()))
        return u"Invalid page name. Do not type words used in Website name."_s;
    const bool alike = std::ranges::any_of(other_pages, [&](const QString& file) {
        const QString other = strip_tutto(file).toLower();
        return !other.isEmpty() && (lower.contains(other) || other.contains(lower));
    });
    if (alike) return u"Invalid page name. Do not type words used in the name of other pages of the Website."_s;
    return std::nullopt;
}

/// True for characters that no one sees: control characters, marks of writing direction, halves of characters.
bool holds_invisible(const QString& name) {
    return !name.isValidUtf16() || std::ranges::any_of(name.toStdU32String(), [](char32_t c) {
        const QChar::Category category = QChar::category(c);
        return category == QChar::Other_Control || category == QChar::Other_Format;
    });
}

/// A page whose file the listings leave out would be lost to its maker.
std::optional<QString> refusal_of_unlisted(const QString& name) {
    for (const QString& part : {u"vuota"_s, u"_card"_s})
        if (name.contains(part) && is_never_listed(name + u".htm"_s)) return invalid_name_message(part);
    return std::nullopt;
}

}  // namespace

std::optional<QString> Verifica_Nome(const QString& name) {
    const QStringList& words = reserved_words();
    const auto reserved =
        std::ranges::find_if(words, [&](const QString& word) { return word.compare(name, Qt::CaseInsensitive) == 0; });
    if (reserved != words.end()) return *reserved;

    const bool blank = std::ranges::any_of(name, [](QChar c) { return c.isSpace(); });
    for (const QStringList& group : forbidden_groups()) {
        const bool hit = (blank && group.contains(u" "_s)) ||
                         std::ranges::any_of(group, [&](const QString& part) { return name.contains(part); });
        if (hit) return u"'%1'"_s.arg(group.join(u"' , '"_s));
    }
    if (holds_invisible(name)) return u"the invisible characters"_s;
    return std::nullopt;
}

QString invalid_name_message(const QString& offending) {
    return u"Invalid name. Change "_s + offending +
           (offending.contains(u"' '"_s) ? u" or Cancel the space after the name"_s : u" or choose another name."_s);
}

std::optional<QString> refusal_of_website_name(const QString& name) {
    if (auto refusal = refusal_of_entry_name(name)) return refusal;
    if (is_reserved_folder(name)) return invalid_name_message(name.startsWith(u'_') ? u"_"_s : name);
    return std::nullopt;
}

std::optional<QString> refusal_of_page_name(const QString& typed, const QString& website,
                                            const QStringList& other_pages) {
    const QString name = typed_page_name(typed);
    // A field left empty is too short; what is too short behind a typed ending has a text of its own.
    if (name.trimmed().isEmpty() && name != typed) return u"Insert a valid name of new page"_s;
    if (auto refusal = refusal_of_length(name)) return refusal;
    if (auto refusal = refusal_of_likeness(name, website, other_pages)) return refusal;
    if (auto refusal = refusal_of_words(name)) return refusal;
    return refusal_of_unlisted(name);
}

std::optional<QString> refusal_of_entry_name(const QString& name) {
    if (auto refusal = refusal_of_length(name)) return refusal;
    return refusal_of_words(name);
}

QString typed_page_name(const QString& typed) {
    return strip_estensione(typed);
}

}  // namespace pondera
