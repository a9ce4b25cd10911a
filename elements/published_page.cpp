#include "elements/published_page.h"

#include "base/tag_walk.h"
#include "elements/element_name.h"
#include "elements/markup.h"
#include "elements/page_repairs.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kAnchorNotClosed = u"ERROR: </A> not found!"_s;
const QString kTagNotClosed = u"ERROR NOT FOUND: >"_s;
constexpr int kProgressSteps = 100;

/// The walk over a page's elements. It builds the new text beside the old one, so that its time grows with the length
/// only.
class ElementWalk {
  public:
    explicit ElementWalk(const QString& text) : text_(text) { page_.text.reserve(text.size() + text.size() / 16); }

    PublishedPage run(const std::function<void(int, int)>& progress) {
        TagWalk walk(text_);
        int shown = 0;
        while (const auto place = walk.next()) {
            check(*place);
            if (place->closed) normalise(*place);
            const int done = static_cast<int>(place->end * kProgressSteps / text_.size());
            if (progress && done > shown) progress(shown = done, kProgressSteps);
        }
        if (anchor_open_) report(kAnchorNotClosed);
        page_.text.append(QStringView(text_).sliced(copied_));
        return std::move(page_);
    }

  private:
    void check(const TagPlace& tag) {
        if (tag.name == u"IMG" && !tag.closed) report(kTagNotClosed);
        if (tag.name == u"A" && anchor_open_) report(kAnchorNotClosed);
        if (tag.name == u"A") anchor_open_ = true;
        if (tag.name == u"/A") anchor_open_ = false;
    }

    void normalise(const TagPlace& place) {
        const QStringView tag = QStringView(text_).sliced(place.begin, place.end - place.begin);
        const auto style_place = find_attribute(tag, u"style");
        if (!style_place || has_reserved_name(tag) || is_media_placeholder(tag)) return;
        const QStringView style = attribute_value(tag, u"style");
        if (!is_positioned(style)) return;
        page_.text.append(QStringView(text_).sliced(copied_, place.begin - copied_));
        page_.text.append(tag_with_style(tag.toString(), normalise_style(style)));
        copied_ = place.end;
    }

    void report(const QString& text) {
        if (!page_.reports.contains(text)) page_.reports.append(text);
    }

    const QString& text_;
    PublishedPage page_;
    qsizetype copied_ = 0;
    bool anchor_open_ = false;
};

}  // namespace

PublishedPage convert_page(const QString& text, const Conversion& conversion) {
    const QString repaired = normalise_tags(repair_page_text(text, conversion.roots, conversion.website));
    PublishedPage page = ElementWalk(repaired).run(conversion.progress);
    for (const ExpansionStep& step : conversion.expansions) page.text = step.expand(page.text);
    return page;
}

}  // namespace pondera
