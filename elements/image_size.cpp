#include "elements/image_size.h"

#include <array>

#include "base/tag_walk.h"
#include "elements/markup.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastScore = 3;

/// True when `tag` holds `property` as a whole ("LEFT: 10" is neither in "LEFT: 100px" nor in "MARGIN-LEFT: 10px").
bool holds(const QString& tag, const QString& property) {
    for (qsizetype at = tag.indexOf(property); at >= 0; at = tag.indexOf(property, at + 1)) {
        if (at > 0 && (tag[at - 1].isLetterOrNumber() || tag[at - 1] == u'-')) continue;
        const QStringView rest = QStringView(tag).sliced(at + property.size());
        if (rest.isEmpty() || rest.startsWith(u"px") || rest[0] == u';' || rest[0] == u' ' || rest[0] == u'"')
            return true;
    }
    return false;
}

int score(const QString& tag, const ImageTraits& image) {
    const QString seen = tag_with_style(tag, normalise_style(attribute_value(tag, u"style")));
    int score = 0;
    score += holds(seen, u"LEFT: %1"_s.arg(image.position.x()));
    score += holds(seen, u"TOP: %1"_s.arg(image.position.y()));
    score += !image.level.isEmpty() &&
             (holds(seen, u"Z-INDEX: "_s + image.level) || holds(seen, u"Z-INDEX= "_s + image.level));
    score += !image.name.isEmpty() && attribute_value(tag, u"name") == image.name;
    return score;
}

QString with_length(QString tag, const QString& key, int length) {
    const auto attribute = find_attribute(tag, key);
    if (attribute)
        tag.replace(attribute->value_begin, attribute->value_end - attribute->value_begin, QString::number(length));
    const QString style = attribute_value(tag, u"style").toString();
    const bool in_style = !style_property(style, key).isEmpty();
    if (attribute && !in_style) return tag;
    return tag_with_style(tag, with_style_property(style, key, u"%1px"_s.arg(length)));
}

}  // namespace

std::optional<QString> page_with_image_size(const QString& page, const ImageTraits& image, const QSize& size) {
    QString text = normalise_tags(page);
    TagPlace best;
    int best_score = kLeastScore - 1;
    bool unique = false;
    TagWalk walk(text);
    while (const auto tag = walk.next()) {
        if (tag->name != u"IMG" || !tag->closed) continue;
        const int tag_score = score(text.sliced(tag->begin, tag->end - tag->begin), image);
        if (tag_score < best_score) continue;
        unique = tag_score > best_score;
        best_score = tag_score;
        best = *tag;
    }
    if (best_score < kLeastScore || !unique) return std::nullopt;
    const qsizetype length = best.end - best.begin;
    return text.replace(best.begin, length, image_with_size(text.sliced(best.begin, length), size));
}

QString image_with_size(const QString& tag, const QSize& size) {
    return with_length(with_length(tag, u"WIDTH"_s, size.width()), u"HEIGHT"_s, size.height());
}

std::optional<int> parse_image_length(const QString& text) {
    bool is_number = false;
    const int length = text.trimmed().toInt(&is_number);
    if (!is_number || length < 1 || length > kGreatestImageLength) return std::nullopt;
    return length;
}

}  // namespace pondera
