#include "elements/page_repairs.h"

#include <QUrl>

#include <array>

#include "base/text.h"
#include "elements/tag_walk.h"

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

/// "'_4" and "?_4" are what some code pages left of "§_4". They are meant where a file name begins: not where a quote
/// opens a script argument ("esempio('_4_...") or an attribute's value, and not where "?" begins an address's query
/// ("list.php?_4=1").
bool is_damaged_mark(QStringView text, qsizetype at) {
    if (text[at] == u'?') return !character_before(text, at).isLetterOrNumber();
    const QStringView before = text.first(at).last(std::min<qsizetype>(at, 16)).trimmed();
    return before.isEmpty() || !QStringView(u"(,=[+:").contains(before.back());
}

/// A page's kind code follows: "/?_4_Menu.htm", but not the query of "http://host/?_lang=it".
bool begins_page_name(QStringView text, qsizetype at) {
    constexpr qsizetype kCodeEnd = 4;
    return at + kCodeEnd < text.size() && text[at + kCodeEnd] == u'_';
}

QString with_repaired_marks(const QString& text) {
    QString result = replace_where(text, u"/?_"_s, u"/_", begins_page_name);
    for (const auto& mark : {u"'_4"_s, u"?_4"_s, u"'_2"_s, u"?_2"_s, u"'_3"_s, u"'_y"_s, u"?_y"_s})
        result = replace_where(result, mark, QStringView(mark).sliced(1), is_damaged_mark);
    return result;
}

/// "../NAME/x" in the Website NAME is "x". Behind other path characters ("../../NAME/x") it means another place.
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

/// Gives the value that a handler's call ends its closing quote, unless the value is quoted whole already.
QString with_quoted_call(QString tag, const QString& call) {
    for (qsizetype at = tag.indexOf(call); at >= 0; at = tag.indexOf(call, at + call.size())) {
        const qsizetype end = at + call.size();
        if (character_before(tag, at) == u'=') {
            tag.insert(end, u'"').insert(at, u'"');
            continue;
        }
        const qsizetype opening = at == 0 ? -1 : tag.lastIndexOf(u'"', at - 1);
        const bool is_opened = opening > 0 && tag[opening - 1] == u'=';
        const qsizetype closing = tag.indexOf(u'"', end);
        const bool is_closed = closing >= 0 && tag[closing - 1] != u'=';
        if (is_opened && !is_closed) tag.insert(end, u'"');
    }
    return tag;
}

/// Quotes the event handlers of the search and login boxes, whose attributes an editing control leaves unquoted.
QString with_quoted_handlers(const QString& text) {
    static const std::array kCalls{u"ChiamaMotore();"_s, u"ClickArea();"_s};
    QString result;
    qsizetype copied = 0;
    TagWalk walk(text);
    while (const auto place = walk.next()) {
        const QString tag = text.sliced(place->begin, place->end - place->begin);
        QString quoted = tag;
        quoted.replace(u"=k=(document.all)"_s, u"=\"k=(document.all)"_s);
        for (const QString& call : kCalls) quoted = with_quoted_call(quoted, call);
        if (quoted == tag) continue;
        result.append(QStringView(text).sliced(copied, place->begin - copied)).append(quoted);
        copied = place->end;
    }
    return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

}  // namespace

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
