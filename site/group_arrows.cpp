#include "site/group_arrows.h"

#include <optional>

#include "base/tag_walk.h"
#include "site/page_references.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

struct ArrowLook {
    QString id;
    QString name;
    QString picture;
    QString words;
    int left;
};

const ArrowLook& look_of(GroupArrow arrow) {
    static const ArrowLook next{u"F_Dex"_s, u"FRECCIAxDEX"_s, u"f_dex.gif"_s, u"Next page"_s, 934};
    static const ArrowLook previous{u"F_Sin"_s, u"FRECCIAxSINISTRA"_s, u"f_sin.gif"_s, u"Previous page"_s, 884};
    return arrow == GroupArrow::kNext ? next : previous;
}

QString markup_of(GroupArrow arrow, const QString& target) {
    const ArrowLook& look = look_of(arrow);
    return u"<A href=\"%1\"><IMG id=%2 name=%3 style=\"Z-INDEX: 830; LEFT: %4px; POSITION: absolute; TOP: 61px\" "
           "height=44 alt=\"%5\" src=\"media/img/%6\" width=44 border=0></A>"_s.arg(
               address_of(target), look.id, look.name, QString::number(look.left), look.words, look.picture);
}

/// Where an arrow stands in a page's text.
struct ArrowPlace {
    TagPlace picture;
    std::optional<TagPlace> link;  ///< the tag of the link around it, when it has one
    qsizetype link_content_end = 0;
    qsizetype link_end = 0;
};

QString text_of(const QString& page, const TagPlace& tag) {
    return page.sliced(tag.begin, tag.end - tag.begin);
}

bool is_arrow(QStringView tag, const ArrowLook& look) {
    return attribute_value(tag, u"name").compare(look.name, Qt::CaseInsensitive) == 0 ||
           attribute_value(tag, u"id").compare(look.id, Qt::CaseInsensitive) == 0;
}

std::optional<ArrowPlace> find_arrow(const QString& page, GroupArrow arrow) {
    const ArrowLook& look = look_of(arrow);
    std::optional<ArrowPlace> place;
    std::optional<TagPlace> link;
    TagWalk walk(page);
    while (const auto tag = walk.next()) {
        if (tag->name == u"/A" && place) {
            place->link_content_end = tag->begin;
            place->link_end = tag->end;
            return place;
        }
        if (tag->name == u"A")
            link = *tag;
        else if (tag->name == u"/A")
            link.reset();
        if (place || tag->name != u"IMG" || !is_arrow(text_of(page, *tag), look)) continue;
        place = ArrowPlace{.picture = *tag, .link = link, .link_content_end = tag->end, .link_end = tag->end};
        if (!link) return place;
    }
    return place;
}

/// Where a page's body ends.
qsizetype body_end(const QString& page) {
    qsizetype end = page.size();
    TagWalk walk(page);
    while (const auto tag = walk.next())
        if (tag->name == u"/BODY") end = tag->begin;
    return end;
}

QString with_address(const QString& link, const QString& target) {
    const QString address = u'"' + address_of(target) + u'"';
    const auto href = find_attribute(link, u"href");
    if (!href) return QString(link).insert(tag_name_end(link), u" href="_s + address);
    const qsizetype quote = href->quote.isNull() ? 0 : 1;
    return QString(link).replace(href->value_begin - quote, href->value_end - href->value_begin + 2 * quote, address);
}

QString replaced(const QString& page, qsizetype begin, qsizetype end, const QString& with) {
    return QString(page).replace(begin, end - begin, with);
}

}  // namespace

QString arrow_picture(GroupArrow arrow) {
    return look_of(arrow).picture;
}

bool has_arrow(const QString& page_text, GroupArrow arrow) {
    return find_arrow(page_text, arrow).has_value();
}

QString with_arrow(const QString& page_text, GroupArrow arrow, const QString& target) {
    const auto place = find_arrow(page_text, arrow);
    if (!place) return QString(page_text).insert(body_end(page_text), markup_of(arrow, target));
    if (const auto& link = place->link)
        return replaced(page_text, link->begin, link->end, with_address(text_of(page_text, *link), target));
    const QString picture = text_of(page_text, place->picture);
    return replaced(page_text, place->picture.begin, place->picture.end,
                    u"<A href=\"%1\">"_s.arg(address_of(target)) + picture + u"</A>"_s);
}

QString without_arrow(const QString& page_text, GroupArrow arrow) {
    const auto place = find_arrow(page_text, arrow);
    if (!place) return page_text;
    if (!place->link) return replaced(page_text, place->picture.begin, place->picture.end, {});
    const QString before = page_text.first(place->picture.begin).sliced(place->link->end);
    const QString behind = page_text.first(place->link_content_end).sliced(place->picture.end);
    return replaced(page_text, place->link->begin, place->link_end, before + behind);
}

}  // namespace pondera
