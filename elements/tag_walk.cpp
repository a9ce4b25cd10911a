#include "elements/tag_walk.h"

#include <algorithm>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool ends_name(QChar c) {
    return c.isSpace() || c == u'>' || c == u'/' || c == u'<' || c == u'=';
}

bool is_quote(QChar c) {
    return c == u'"' || c == u'\'';
}

}  // namespace

std::optional<TagPlace> TagWalk::next() {
    while ((position_ = text_.indexOf(u'<', position_)) >= 0) {
        if (text_.sliced(position_).startsWith(u"<!--")) {
            const qsizetype end = text_.indexOf(u"-->", position_);
            position_ = end < 0 ? text_.size() : end + 3;
            continue;
        }
        TagPlace tag{.begin = position_, .end = position_ + 1, .name = {}, .closed = true};
        if (tag.end < text_.size() && text_[tag.end] == u'/') ++tag.end;
        if (tag.end >= text_.size() || !text_[tag.end].isLetter()) {
            ++position_;
            continue;
        }
        const qsizetype name_end = std::find_if(text_.begin() + tag.end, text_.end(), ends_name) - text_.begin();
        tag.name = text_.sliced(tag.begin + 1, name_end - tag.begin - 1).toString().toUpper();
        tag.end = name_end;
        find_end(tag);
        position_ = tag.end;
        skip_raw_text(tag.name);
        return tag;
    }
    position_ = text_.size();
    return std::nullopt;
}

void TagWalk::find_end(TagPlace& tag) {
    bool after_equals = false;
    for (qsizetype i = tag.end; i < text_.size(); ++i) {
        const QChar c = text_[i];
        if (c == u'>' || c == u'<') {
            tag.closed = c == u'>';
            tag.end = tag.closed ? i + 1 : i;
            return;
        }
        if (after_equals && is_quote(c) && quotes_pair_) {
            const qsizetype close = text_.indexOf(c, i + 1);
            if (close >= 0)
                i = close;
            else
                quotes_pair_ = false;
        }
        after_equals = c == u'=' || (after_equals && c.isSpace());
    }
    tag.closed = false;
    tag.end = text_.size();
}

void TagWalk::skip_raw_text(const QString& name) {
    if (name != u"SCRIPT" && name != u"STYLE") return;
    const qsizetype end = text_.indexOf(u"</"_s + name, position_, Qt::CaseInsensitive);
    position_ = end < 0 ? text_.size() : end;
}

std::optional<AttributePlace> find_attribute(QStringView tag, QStringView name) {
    qsizetype i = std::find_if(tag.begin(), tag.end(), [](QChar c) { return c.isSpace(); }) - tag.begin();
    const auto skip_blanks = [&] {
        while (i < tag.size() && tag[i].isSpace()) ++i;
    };
    while (i < tag.size()) {
        skip_blanks();
        const qsizetype name_begin = i;
        while (i < tag.size() && !tag[i].isSpace() && tag[i] != u'=' && tag[i] != u'>') ++i;
        const QStringView found = tag.sliced(name_begin, i - name_begin);
        skip_blanks();
        if (i >= tag.size() || tag[i] != u'=') {
            if (found.isEmpty()) ++i;
            continue;
        }
        ++i;
        skip_blanks();
        AttributePlace place;
        if (i < tag.size() && is_quote(tag[i]) && tag.indexOf(tag[i], i + 1) >= 0) place.quote = tag[i++];
        place.value_begin = i;
        if (!place.quote.isNull())
            place.value_end = tag.indexOf(place.quote, i);
        else
            place.value_end =
                std::find_if(tag.begin() + i, tag.end(), [](QChar c) { return c.isSpace() || c == u'>'; }) -
                tag.begin();
        if (found.compare(name, Qt::CaseInsensitive) == 0) return place;
        i = place.value_end + (place.quote.isNull() ? 0 : 1);
    }
    return std::nullopt;
}

QStringView attribute_value(QStringView tag, QStringView name) {
    const auto place = find_attribute(tag, name);
    return place ? tag.sliced(place->value_begin, place->value_end - place->value_begin) : QStringView();
}

}  // namespace pondera
