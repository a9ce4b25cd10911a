#include "site/page_references.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/character_references.h"
#include "base/tag_walk.h"
#include "site/script_strings.h"

namespace pondera {

namespace {

struct AddressAttribute {
    QStringView name;
    QStringView tag;  ///< empty for all tags
    ReferenceKind kind;
};

/// The attributes that hold one address; the first row that fits decides.
constexpr std::array kAddressAttributes{AddressAttribute{u"href", u"IMAGE", ReferenceKind::kPicture},
                                        AddressAttribute{u"href", {}, ReferenceKind::kLink},
                                        AddressAttribute{u"xlink:href", u"IMAGE", ReferenceKind::kPicture},
                                        AddressAttribute{u"src", u"SCRIPT", ReferenceKind::kScript},
                                        AddressAttribute{u"src", u"FRAME", ReferenceKind::kFrame},
                                        AddressAttribute{u"src", u"IFRAME", ReferenceKind::kFrame},
                                        AddressAttribute{u"src", u"EMBED", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", u"VIDEO", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", u"AUDIO", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", u"SOURCE", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", u"TRACK", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", u"BGSOUND", ReferenceKind::kMedia},
                                        AddressAttribute{u"src", {}, ReferenceKind::kPicture},
                                        AddressAttribute{u"background", {}, ReferenceKind::kPicture},
                                        AddressAttribute{u"lowsrc", {}, ReferenceKind::kPicture},
                                        AddressAttribute{u"dynsrc", {}, ReferenceKind::kMedia},
                                        AddressAttribute{u"poster", {}, ReferenceKind::kPicture},
                                        AddressAttribute{u"data", u"OBJECT", ReferenceKind::kMedia},
                                        AddressAttribute{u"longdesc", {}, ReferenceKind::kLink},
                                        AddressAttribute{u"action", u"FORM", ReferenceKind::kLink},
                                        AddressAttribute{u"formaction", {}, ReferenceKind::kLink}};

bool is(QStringView text, QStringView name) {
    return text.size() == name.size() && text.compare(name, Qt::CaseInsensitive) == 0;
}

class ReferenceWalk {
  public:
    /// Looks only where one of `places` is; everywhere without them.
    explicit ReferenceWalk(QStringView text, const QList<qsizetype>* places = nullptr)
        : text_(text), attributes_(text), places_(places) {}

    QList<PageReference> run() {
        TagWalk walk(text_);
        TagPlace last;
        while (!is_done()) {
            auto tag = walk.next();
            take_inside(last, tag ? tag->begin : text_.size());
            if (!tag) break;
            if (is_sought(tag->begin, tag->end)) take_attributes(*tag);
            last = *std::move(tag);
        }
        return std::move(references_);
    }

  private:
    /// True when the walk is past the last place.
    [[nodiscard]] bool is_done() const { return places_ && next_place_ == places_->size(); }

    /// True when one of the places lies between; asked from the beginning of the text to its end.
    bool is_sought(qsizetype begin, qsizetype end) {
        if (!places_) return true;
        while (!is_done() && places_->at(next_place_) < begin) ++next_place_;
        return !is_done() && places_->at(next_place_) < end;
    }

    /// Takes what stands between a tag that holds only text and the one that ends it.
    void take_inside(const TagPlace& tag, qsizetype end) {
        if (!is_sought(tag.end, end)) return;
        if (tag.name == u"SCRIPT") take_script(tag.end, end, ScriptPlace::kScript);
        if (tag.name == u"STYLE") take_style(tag.end, end);
    }

    void take_attributes(const TagPlace& tag) {
        if (tag.name.startsWith(u'/') || tag.name == u"BASE") return;
        attributes_.move_to(tag.begin + 1 + tag.name.size());
        while (const auto place = attributes_.next()) take_attribute(tag, *place);
    }

    void take_attribute(const TagPlace& tag, const AttributePlace& place) {
        const QStringView name = between(place.name_begin, place.name_end);
        if (name.startsWith(u"on", Qt::CaseInsensitive))
            take_script(place.value_begin, place.value_end, ScriptPlace::kAttribute);
        else if (is(name, u"style"))
            take_style(place.value_begin, place.value_end);
        else if (is(name, u"srcset"))
            take_srcset(place);
        else if (is(name, u"value"))
            take_value(tag, place);
        else if (is(name, u"content"))
            take_content(tag, place);
        else if (const auto* row = std::ranges::find_if(
                     kAddressAttributes,
                     [&](const auto& a) { return is(name, a.name) && (a.tag.isEmpty() || a.tag == tag.name); });
                 row != kAddressAttributes.end())
            take_address(place.value_begin, place.value_end, tag.name == u"LINK" ? kind_of_link(tag) : row->kind);
    }

    void take_address(qsizetype begin, qsizetype end, ReferenceKind kind) {
        while (begin < end && text_[begin].isSpace()) ++begin;
        while (begin < end && text_[end - 1].isSpace()) --end;
        if (between(begin, end).startsWith(u"javascript:", Qt::CaseInsensitive))
            take_script(begin, end, ScriptPlace::kAttribute);
        else if (begin < end)
            references_.append({begin, end, resolve_character_references(between(begin, end)), kind});
    }

    void take_script(qsizetype begin, qsizetype end, ScriptPlace place) {
        find_file_strings(text_, begin, end, place, [&](qsizetype from, qsizetype to, ReferenceKind kind) {
            const QStringView address = between(from, to);
            references_.append(
                {from, to,
                 place == ScriptPlace::kAttribute ? resolve_character_references(address) : address.toString(), kind});
        });
    }

    /// Takes the addresses of "url(...)" and of "@import '...'".
    void take_style(qsizetype begin, qsizetype end) {
        while (begin < end) {
            const QStringView rest = between(begin, end);
            if (rest.startsWith(u"/*")) {
                const qsizetype close = rest.indexOf(u"*/", 2);
                begin = close < 0 ? end : begin + close + 2;
            } else if (rest.startsWith(u"url(", Qt::CaseInsensitive)) {
                begin = take_style_address(begin + 4, end, u')', ReferenceKind::kPicture);
            } else if (rest.startsWith(u"@import", Qt::CaseInsensitive)) {
                begin += 7;
                while (begin < end && text_[begin].isSpace()) ++begin;
                if (between(begin, end).startsWith(u"url(", Qt::CaseInsensitive)) begin += 4;
                begin = take_style_address(begin, end, u')', ReferenceKind::kStyleSheet);
            } else {
                begin = next_style_sign(begin + 1, end);
            }
        }
    }

    /// The next place where a comment, an address or an import can begin.
    [[nodiscard]] qsizetype next_style_sign(qsizetype begin, qsizetype end) const {
        const auto is_sign = [](QChar c) { return c == u'/' || c == u'u' || c == u'U' || c == u'@'; };
        return std::find_if(text_.begin() + begin, text_.begin() + end, is_sign) - text_.begin();
    }

    /// Takes the address at `begin`, up to its own quote or else up to `closing`; gives where it ends.
    qsizetype take_style_address(qsizetype begin, qsizetype end, QChar closing, ReferenceKind kind) {
        while (begin < end && text_[begin].isSpace()) ++begin;
        for (const QStringView quote : {u"\"", u"'", u"&quot;", u"&#39;", u"&#34;"}) {
            if (!between(begin, end).startsWith(quote)) continue;
            begin += quote.size();
            const qsizetype length = between(begin, end).indexOf(quote);
            if (length < 0) return begin;
            take_address(begin, begin + length, kind);
            return begin + length + quote.size();
        }
        const qsizetype length = between(begin, end).indexOf(closing);
        if (length < 0) return end;
        take_address(begin, begin + length, kind);
        return begin + length;
    }

    /// Takes the addresses of a list such as "a.jpg, b.jpg 2x".
    void take_srcset(const AttributePlace& place) {
        qsizetype at = place.value_begin;
        while (at < place.value_end) {
            if (text_[at].isSpace() || text_[at] == u',') {
                ++at;
                continue;
            }
            const qsizetype begin = at;
            while (at < place.value_end && !text_[at].isSpace()) ++at;
            qsizetype end = at;
            while (end > begin && text_[end - 1] == u',') --end;
            take_address(begin, end, ReferenceKind::kPicture);
            if (end == at) at = begin_of_next(at, place.value_end);
        }
    }

    [[nodiscard]] qsizetype begin_of_next(qsizetype at, qsizetype end) const {
        const qsizetype comma = between(at, end).indexOf(u',');
        return comma < 0 ? end : at + comma + 1;
    }

    /// Takes the file of a player's parameter, and the page that an entry of a list leads to.
    void take_value(const TagPlace& tag, const AttributePlace& place) {
        const QStringView value = between(place.value_begin, place.value_end);
        if (tag.name == u"PARAM") {
            const QStringView name = attribute_value(text_of(tag), u"name");
            if (std::ranges::any_of(std::array{u"movie", u"src", u"filename", u"url"},
                                    [&](QStringView file) { return is(name, file); }))
                take_address(place.value_begin, place.value_end, ReferenceKind::kMedia);
        } else if (tag.name == u"OPTION" && kind_of_file(resolve_character_references(value))) {
            take_address(place.value_begin, place.value_end, ReferenceKind::kLink);
        }
    }

    /// Takes the page that a page goes on to by itself ("5; url=next.htm").
    void take_content(const TagPlace& tag, const AttributePlace& place) {
        if (tag.name != u"META" || !is(attribute_value(text_of(tag), u"http-equiv"), u"refresh")) return;
        const QStringView value = between(place.value_begin, place.value_end);
        const qsizetype url = value.indexOf(u"url", 0, Qt::CaseInsensitive);
        const qsizetype equals = url < 0 ? -1 : value.indexOf(u'=', url);
        if (equals < 0) return;
        qsizetype begin = place.value_begin + equals + 1;
        qsizetype end = place.value_end;
        while (begin < end && (text_[begin].isSpace() || text_[begin] == u'\'' || text_[begin] == u'"')) ++begin;
        while (begin < end && (text_[end - 1].isSpace() || text_[end - 1] == u'\'' || text_[end - 1] == u'"')) --end;
        take_address(begin, end, ReferenceKind::kLink);
    }

    [[nodiscard]] ReferenceKind kind_of_link(const TagPlace& tag) const {
        const QStringView relation = attribute_value(text_of(tag), u"rel");
        if (relation.contains(u"stylesheet", Qt::CaseInsensitive)) return ReferenceKind::kStyleSheet;
        return relation.contains(u"icon", Qt::CaseInsensitive) ? ReferenceKind::kPicture : ReferenceKind::kLink;
    }

    [[nodiscard]] QStringView between(qsizetype begin, qsizetype end) const { return text_.first(end).sliced(begin); }

    [[nodiscard]] QStringView text_of(const TagPlace& tag) const { return between(tag.begin, tag.end); }

    QStringView text_;
    AttributeScan attributes_;
    const QList<qsizetype>* places_;
    qsizetype next_place_ = 0;
    QList<PageReference> references_;
};

}  // namespace

QList<PageReference> page_references(const QString& text) {
    return ReferenceWalk(text).run();
}

QList<PageReference> page_references_at(const QString& text, const QList<qsizetype>& places) {
    return ReferenceWalk(text, &places).run();
}

QList<PageReference> script_references(const QString& text) {
    QList<PageReference> references;
    find_file_strings(text, 0, text.size(), ScriptPlace::kSettings,
                      [&](qsizetype begin, qsizetype end, ReferenceKind kind) {
                          references.append({begin, end, text.sliced(begin, end - begin), kind});
                      });
    return references;
}

}  // namespace pondera
