#include "elements/page_repairs.h"

#include <QUrl>

#include <algorithm>

#include "base/tag_walk.h"
#include "base/text.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Replaces `find` where `is_meant(text, place)` holds, from left to right in one pass.
template <typename IsMeant>
QString replace_where(const QString& text, const QString& find, QStringView with, IsMeant is_meant,
                      Qt::CaseSensitivity sensitivity = Qt::CaseSensitive) {
    QString result;
    qsizetype copied = 0;
    for (qsizetype at = text.indexOf(find, 0, sensitivity); at >= 0; at = text.indexOf(find, at, sensitivity)) {
        if (!is_meant(text, at)) {
            ++at;
            continue;
        }
        result.append(QStringView(text).sliced(copied, at - copied)).append(with);
        at += find.size();
        copied = at;
    }
    return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

QChar character_before(QStringView text, qsizetype at) {
    return at > 0 ? text[at - 1] : QChar();
}

/// Removes the editing marks, so that links between editing copies become links between published pages; in an address
/// the mark may stand percent-encoded in either encoding.
QString without_editing_marks(const QString& text) {
    QString result = without(text, u"§ç");
    for (const auto& link : {u"%C2%A7_"_s, u"%A7_"_s, u"%C3%A7index."_s, u"%E7index."_s})
        result = replace_all(result, link, link.sliced(link.lastIndexOf(u'%') + 3), Qt::CaseInsensitive);
    return result;
}

/// Joins an anchor whose tag a line break divided after its "<". A break before the word "A" in a text is left alone.
QString with_joined_anchors(const QString& text, const QString& line_break) {
    return replace_all(text, u'<' + line_break + u"A "_s, u"<A "_s);
}

/// True inside an address such as "http://host/?_4_=1", in which "?" begins a query.
bool is_in_web_address(QStringView text, qsizetype at) {
    constexpr qsizetype kFarthestHost = 256;
    for (qsizetype i = at - 1; i >= std::max<qsizetype>(2, at - kFarthestHost); --i) {
        if (text[i] == u'"' || text[i] == u'\'' || text[i].isSpace()) return false;
        if (text[i] == u'/' && text[i - 1] == u'/' && text[i - 2] == u':') return true;
    }
    return false;
}

/// "'_4" and "?_4" are what some code pages left of "§_4". They are meant where a file name begins: directly behind the
/// quote of an attribute or behind a folder. Any other quote is a script's own ("esempio('_4_...", "return '_4_...").
bool is_damaged_mark(QStringView text, qsizetype at) {
    const QChar before = character_before(text, at);
    const bool begins_name = before == u'"' || before == u'\'' || before == u'/';
    if (text[at] == u'\'') return begins_name;
    return (begins_name || before == u'=') && !is_in_web_address(text, at);
}

/// A page's kind code follows: "/?_4_Menu.htm", but not "/?_lang=it".
bool is_damaged_page_name(QStringView text, qsizetype at) {
    constexpr qsizetype kCodeEnd = 4;
    return at + kCodeEnd < text.size() && text[at + kCodeEnd] == u'_' && !is_in_web_address(text, at + 1);
}

QString with_repaired_marks(const QString& text) {
    QString result = replace_where(text, u"/?_"_s, u"/_", is_damaged_page_name);
    for (const auto& mark : {u"'_4"_s, u"?_4"_s, u"'_2"_s, u"?_2"_s, u"'_3"_s, u"'_y"_s, u"?_y"_s})
        result = replace_where(result, mark, QStringView(mark).sliced(1), is_damaged_mark);
    return result;
}

/// Where the first call of the boxes' functions in a handler ends, 0 when there is none.
qsizetype call_end(QStringView handler) {
    qsizetype first = 0;
    for (const QStringView call : {u"ChiamaMotore();", u"ClickArea();"}) {
        const qsizetype at = handler.indexOf(call);
        if (at >= 0 && (first == 0 || at + call.size() < first)) first = at + call.size();
    }
    return first;
}

/// A tag with its handlers of the search and login boxes quoted: an unquoted value as a whole; and one that has its
/// opening quote only, so that it runs on into the next value's, behind the call.
QString tag_with_quoted_handlers(QStringView tag) {
    QString result;
    qsizetype copied = 0;
    const auto quote_at = [&](qsizetype place) {
        result.append(tag.first(place).sliced(copied)).append(u'"');
        copied = place;
    };
    AttributeScan attributes(tag, tag_name_end(tag));
    while (const auto place = attributes.next()) {
        const QStringView value = tag.first(place->value_end).sliced(place->value_begin);
        const qsizetype call = call_end(value);
        if (place->quote.isNull() && (call > 0 || value.startsWith(u"k=(document.all)"))) {
            if (!value.startsWith(u'"')) quote_at(place->value_begin);
            quote_at(place->value_end);
        } else if (place->quote == u'"' && call > 0 && value.trimmed().endsWith(u'=')) {
            quote_at(place->value_begin + call);
            attributes.move_to(place->value_begin + call);
        }
    }
    return result.append(tag.sliced(copied));
}

/// Quotes the event handlers of the search and login boxes, whose attributes an editing control leaves unquoted.
QString with_quoted_handlers(const QString& text) {
    QString result;
    qsizetype copied = 0;
    TagWalk walk(text);
    while (const auto place = walk.next()) {
        const QStringView tag = QStringView(text).first(place->end).sliced(place->begin);
        result.append(QStringView(text).first(place->begin).sliced(copied)).append(tag_with_quoted_handlers(tag));
        copied = place->end;
    }
    return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

}  // namespace

QString with_own_links_relative(const QString& text, const QString& website) {
    const auto begins_address = [](QStringView page, qsizetype at) {
        const QChar before = character_before(page, at);
        return before != u'/' && before != u'.' && !before.isLetterOrNumber();
    };
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(website));
    QString result = replace_where(text, u"../"_s + website + u'/', u"", begins_address, Qt::CaseInsensitive);
    if (encoded != website)
        result = replace_where(result, u"../"_s + encoded + u'/', u"", begins_address, Qt::CaseInsensitive);
    return result;
}

QString repair_page_text(const QString& text, const Roots& roots, const QString& website) {
    QString page = roots.replace_websites_root(text, u"..\\"_s);
    page.replace(u'\\', u'/');
    page = without_editing_marks(page);
    page = with_joined_anchors(with_joined_anchors(page, u"\r"_s), u"\r\n"_s);
    page = with_repaired_marks(page);
    page = with_joined_anchors(page, u"\n"_s);
    page.remove(u"file://"_s);
    page = with_own_links_relative(page, website);
    return with_quoted_handlers(page);
}

}  // namespace pondera
