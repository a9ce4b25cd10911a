#pragma once

#include <QString>

namespace pondera {

/// The arrows by which visitors leaf through a group of pages: a picture in a link, known by its name and, the next
/// one, by its id "F_Dex".
enum class GroupArrow { kNext, kPrevious };

/// The picture file of an arrow, in "media/img".
[[nodiscard]] QString arrow_picture(GroupArrow arrow);

/// True when a page's text has the arrow.
[[nodiscard]] bool has_arrow(const QString& page_text, GroupArrow arrow);

/// A page's text with the arrow leading to `target` (a published file name). One that is there keeps its place and
/// look; a new one goes to the end of the body, placed at the right of the models' menu band.
[[nodiscard]] QString with_arrow(const QString& page_text, GroupArrow arrow, const QString& target);

/// A page's text without the arrow; what else stands in the arrow's link stays.
[[nodiscard]] QString without_arrow(const QString& page_text, GroupArrow arrow);

}  // namespace pondera
