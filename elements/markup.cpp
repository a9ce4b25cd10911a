#include "elements/markup.h"

#include <QList>

#include <algorithm>
#include <array>

#include "base/tag_walk.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 6> kTags{u"<IMG", u"<A", u"<BODY", u"<SPAN", u"<DIV", u"<FONT"};
constexpr std::array<QStringView, 6> kPlacingKeys{u"HEIGHT", u"LEFT", u"POSITION", u"TOP", u"WIDTH", u"Z-INDEX"};
constexpr std::array<QStringView, 4> kLengthKeys{u"HEIGHT", u"LEFT", u"TOP", u"WIDTH"};

/// One property of a style value. A piece that is no property ("color") has no key and is kept as it stands.
struct Property {
    QString key;
    QString value;
};

/// How many characters of `text` stand for its first one: a character reference ("&quot;") or the character itself.
qsizetype unit_length(QStringView text) {
    constexpr qsizetype kLongestReference = 8;
    if (!text.startsWith(u'&')) return std::min<qsizetype>(1, text.size());
    const qsizetype semicolon = text.first(std::min(text.size(), kLongestReference)).indexOf(u';');
    const bool is_reference = semicolon > 0 && std::ranges::all_of(text.first(semicolon).sliced(1), [](QChar c) {
                                  return c.isLetterOrNumber() || c == u'#';
                              });
    return is_reference ? semicolon + 1 : 1;
}

/// The character that a unit stands for, as far as it has a meaning in a style; null for the other references.
QChar meaning(QStringView unit) {
    if (unit.size() == 1) return unit[0];
    if (unit == u"&quot;" || unit == u"&#34;") return u'"';
    if (unit == u"&apos;" || unit == u"&#39;") return u'\'';
    if (unit == u"&bsol;" || unit == u"&#92;") return u'\\';
    return {};
}

/// The pieces of a style value between its ";", without comments. What stands in quotes or brackets ("url(data:a;b)")
/// or behind a backslash divides nothing.
QStringList style_pieces(QStringView style) {
    QStringList pieces{QString()};
    QChar quote;
    int depth = 0;
    for (QStringView rest = style; !rest.isEmpty();) {
        if (quote.isNull() && rest.startsWith(u"/*")) {
            const qsizetype end = rest.indexOf(u"*/", 2);
            rest = end < 0 ? QStringView() : rest.sliced(end + 2);
            continue;
        }
        qsizetype length = unit_length(rest);
        const QChar c = meaning(rest.first(length));
        if (c == u'\\') length += unit_length(rest.sliced(length));
        if (c == u';' && quote.isNull() && depth == 0)
            pieces.append(QString());
        else
            pieces.last().append(rest.first(length));
        rest = rest.sliced(length);
        if (!quote.isNull()) {
            if (c == quote) quote = {};
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'(') {
            ++depth;
        } else if (c == u')') {
            depth = std::max(0, depth - 1);
        }
    }
    return pieces;
}

QList<Property> style_properties(QStringView style) {
    QList<Property> properties;
    for (const QString& untrimmed : style_pieces(style)) {
        const QString piece = untrimmed.trimmed();
        if (piece.isEmpty()) continue;
        const qsizetype colon = piece.indexOf(u':');
        if (colon <= 0)
            properties.append({{}, piece});
        else
            properties.append({piece.first(colon).trimmed(), piece.sliced(colon + 1).trimmed()});
    }
    return properties;
}

QString joined(const QList<Property>& properties) {
    QStringList pieces;
    for (const Property& property : properties)
        pieces.append(property.key.isEmpty() ? property.value : property.key + u": "_s + property.value);
    return pieces.join(u"; "_s);
}

bool is_plain_number(const QString& value) {
    bool is_number = false;
    value.toDouble(&is_number);
    return is_number && value.back().isDigit();
}

/// True when `text` begins with `upper` ("<IMG") in lower case or with a capital only ("<img", "<Img").
bool is_tolerated(QStringView text, QStringView upper) {
    return text.startsWith(upper, Qt::CaseInsensitive) &&
           std::ranges::none_of(text.first(upper.size()).sliced(2), [](QChar c) { return c.isUpper(); });
}

bool same_key(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}  // namespace

QString normalise_tags(const QString& text) {
    QString result = text;
    TagWalk walk(text);
    while (const auto tag = walk.next()) {
        const QStringView here = QStringView(text).sliced(tag->begin);
        const auto upper =
            std::ranges::find_if(kTags, [&](QStringView spelling) { return is_tolerated(here, spelling); });
        if (upper != kTags.end()) std::ranges::copy(*upper, result.begin() + tag->begin);
    }
    return result;
}

QString normalise_levels(QString text) {
    for (const auto& spelling : {u"z-index"_s, u"Z-index"_s, u"z-Index"_s}) text.replace(spelling, u"Z-INDEX"_s);
    return text;
}

QString normalise_style(QStringView style) {
    QList<Property> properties = style_properties(style);
    for (Property& property : properties) {
        const auto upper =
            std::ranges::find_if(kPlacingKeys, [&](QStringView key) { return same_key(key, property.key); });
        if (upper == kPlacingKeys.end()) continue;
        property.key = upper->toString();
        if (std::ranges::find(kLengthKeys, *upper) != kLengthKeys.end() && is_plain_number(property.value))
            property.value += u"px"_s;
    }
    return joined(properties);
}

bool is_positioned(QStringView style) {
    const QString position = style_property(style, u"POSITION");
    return !position.isEmpty() && !position.startsWith(u"static"_s, Qt::CaseInsensitive);
}

QString style_property(QStringView style, QStringView name) {
    for (const Property& property : style_properties(style))
        if (same_key(property.key, name)) return property.value;
    return {};
}

QString with_style_property(QStringView style, const QString& name, const QString& value) {
    QList<Property> properties = style_properties(style);
    const auto found = std::ranges::find_if(properties, [&](const Property& p) { return same_key(p.key, name); });
    if (found == properties.end())
        properties.append({name, value});
    else
        found->value = value;
    return joined(properties);
}

QString tag_with_style(QString tag, const QString& style) {
    const auto place = find_attribute(tag, u"style");
    const QChar quote = place && !place->quote.isNull() ? place->quote : u'"';
    const QString quoted = quote + QString(style).replace(quote, quote == u'"' ? u"&quot;"_s : u"&#39;"_s) + quote;
    if (!place) return tag.insert(tag_name_end(tag), u" style="_s + quoted);
    const qsizetype around = place->quote.isNull() ? 0 : 1;
    const qsizetype begin = place->value_begin - around;
    return tag.replace(begin, place->value_end + around - begin, quoted);
}

}  // namespace pondera
