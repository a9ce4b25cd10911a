#include "elements/markup.h"

#include <QList>

#include <algorithm>
#include <array>

#include "elements/tag_walk.h"

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

/// True when a ";" behind `text` closes a character reference ("&quot").
bool opens_reference(QStringView text) {
    const QStringView tail = text.last(std::min<qsizetype>(text.size(), 8));
    const qsizetype ampersand = tail.lastIndexOf(u'&');
    return ampersand >= 0 &&
           std::ranges::all_of(tail.sliced(ampersand + 1), [](QChar c) { return c.isLetterOrNumber() || c == u'#'; });
}

/// The pieces of a style value between its ";", those inside quotes and brackets ("url(data:a;b)") apart.
QList<QStringView> style_pieces(QStringView style) {
    QList<QStringView> pieces;
    QChar quote;
    int depth = 0;
    qsizetype begin = 0;
    for (qsizetype i = 0; i < style.size(); ++i) {
        const QChar c = style[i];
        if (!quote.isNull()) {
            if (c == quote) quote = {};
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'(') {
            ++depth;
        } else if (c == u')') {
            depth = std::max(0, depth - 1);
        } else if (c == u';' && depth == 0 && !opens_reference(style.first(i))) {
            pieces.append(style.sliced(begin, i - begin));
            begin = i + 1;
        }
    }
    pieces.append(style.sliced(begin));
    return pieces;
}

QList<Property> style_properties(QStringView style) {
    QList<Property> properties;
    for (const QStringView untrimmed : style_pieces(style)) {
        const QStringView piece = untrimmed.trimmed();
        if (piece.isEmpty()) continue;
        const qsizetype colon = piece.indexOf(u':');
        if (colon < 0)
            properties.append({{}, piece.toString()});
        else
            properties.append({piece.first(colon).trimmed().toString(), piece.sliced(colon + 1).trimmed().toString()});
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
    return !position.isEmpty() && !same_key(position, u"static");
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
    if (const auto place = find_attribute(tag, u"style")) {
        const qsizetype length = place->value_end - place->value_begin;
        return tag.replace(place->value_begin, length, place->quote.isNull() ? u'"' + style + u'"' : style);
    }
    const qsizetype end = tag.endsWith(u"/>"_s) ? tag.size() - 2 : tag.lastIndexOf(u'>');
    return tag.insert(end, u" style=\""_s + style + u'"');
}

}  // namespace pondera
