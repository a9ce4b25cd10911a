#include "base/tag_walk.h"

#include <algorithm>
#include <array>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 5> kTextOnly{u"SCRIPT", u"STYLE", u"TEXTAREA", u"TITLE", u"XMP"};

bool ends_name(QChar c) {
    return c.isSpace() || c == u'>' || c == u'/' || c == u'<' || c == u'=';
}

bool ends_value(QChar c) {
    return c.isSpace() || c == u'>' || c == u'<';
}

QString upper_case(QStringView name) {
    QString upper = name.toString();
    for (QChar& c : upper)
        if (c >= u'a' && c <= u'z') c = QChar(c.unicode() - (u'a' - u'A'));
    return upper;
}

/// The place of the first character at or behind `from` for which `ends` holds; the text's end when there is none.
qsizetype find_end(QStringView text, qsizetype from, bool (*ends)(QChar)) {
    return std::find_if(text.begin() + from, text.end(), ends) - text.begin();
}

}  // namespace

AttributeScan::AttributeScan(QStringView text, qsizetype position) : text_(text), position_(position) {
}

std::optional<AttributePlace> AttributeScan::next() {
    for (;;) {
        while (position_ < text_.size() && (text_[position_].isSpace() || text_[position_] == u'/')) ++position_;
        if (at_tag_end()) return std::nullopt;
        AttributePlace place;
        place.name_begin = position_;
        place.name_end = position_ = find_end(text_, position_ + 1, ends_name);
        skip_blanks();
        if (at_tag_end() || text_[position_] != u'=') continue;
        ++position_;
        skip_blanks();
        if (opens_value()) {
            place.quote = text_[position_++];
            place.value_begin = position_;
            place.value_end = text_.indexOf(place.quote, position_);
            position_ = place.value_end + 1;
        } else {
            place.value_begin = position_;
            place.value_end = position_ = find_end(text_, position_, ends_value);
        }
        return place;
    }
}

bool AttributeScan::at_tag_end() const {
    return position_ >= text_.size() || text_[position_] == u'>' || text_[position_] == u'<';
}

void AttributeScan::skip_blanks() {
    while (position_ < text_.size() && text_[position_].isSpace()) ++position_;
}

bool AttributeScan::opens_value() {
    if (at_tag_end() || (text_[position_] != u'"' && text_[position_] != u'\'')) return false;
    qsizetype& last = text_[position_] == u'"' ? last_double_quote_ : last_single_quote_;
    if (last == kNotSought) last = text_.lastIndexOf(text_[position_]);
    return position_ < last;
}

std::optional<TagPlace> TagWalk::next() {
    while ((position_ = text_.indexOf(u'<', position_)) >= 0) {
        const QStringView here = text_.sliced(position_);
        if (here.startsWith(u"<!--")) {
            const qsizetype end = text_.indexOf(u"-->", position_ + 2);
            position_ = end < 0 ? text_.size() : end + 3;
            continue;
        }
        const qsizetype letter = here.startsWith(u"</") ? 2 : 1;
        if (here.size() <= letter || !here[letter].isLetter()) {
            ++position_;
            continue;
        }
        const qsizetype name_end = tag_name_end(here);
        TagPlace tag{.begin = position_, .name = upper_case(here.first(name_end).sliced(1))};
        tag.end = tag_end(position_ + name_end);
        tag.closed = tag.end < text_.size() && text_[tag.end] == u'>';
        if (tag.closed) ++tag.end;
        position_ = tag.end;
        skip_text_only(tag.name);
        return tag;
    }
    position_ = text_.size();
    return std::nullopt;
}

/// Where the tag ends whose name ends at `name_end`: at the first ">" or "<", unless a quote stands before it.
qsizetype TagWalk::tag_end(qsizetype name_end) {
    const qsizetype end =
        find_end(text_, name_end, [](QChar c) { return c == u'>' || c == u'<' || c == u'"' || c == u'\''; });
    if (end == text_.size() || text_[end] == u'>' || text_[end] == u'<') return end;
    attributes_.move_to(name_end);
    while (attributes_.next()) continue;
    return attributes_.position();
}

void TagWalk::skip_text_only(const QString& name) {
    if (std::ranges::find(kTextOnly, name) == kTextOnly.end()) return;
    const qsizetype end = text_.indexOf(u"</"_s + name, position_, Qt::CaseInsensitive);
    position_ = end < 0 ? text_.size() : end;
}

qsizetype tag_name_end(QStringView tag) {
    return find_end(tag, std::min<qsizetype>(2, tag.size()), ends_name);
}

std::optional<AttributePlace> find_attribute(QStringView tag, QStringView name) {
    AttributeScan attributes(tag, tag_name_end(tag));
    while (const auto place = attributes.next())
        if (tag.first(place->name_end).sliced(place->name_begin).compare(name, Qt::CaseInsensitive) == 0) return place;
    return std::nullopt;
}

QStringView attribute_value(QStringView tag, QStringView name) {
    const auto place = find_attribute(tag, name);
    return place ? tag.first(place->value_end).sliced(place->value_begin) : QStringView();
}

}  // namespace pondera
