#pragma once

#include <QString>

namespace pondera {

/// `text` with the tolerated spellings of the tags IMG, A, BODY, SPAN, DIV and FONT in upper case: "<img" and "<Img"
/// become "<IMG", "<a" becomes "<A", and so on. As plain replacements they take every tag that begins like one of
/// these ("<abbr" becomes "<Abbr"). The insides of scripts, styles and comments stay as they are ("i<a" is no anchor
/// there).
[[nodiscard]] QString normalise_tags(const QString& text);

/// `text` with "z-index", "Z-index" and "z-Index" as "Z-INDEX".
[[nodiscard]] QString normalise_levels(QString text);

/// A style value with its positioning properties in the editing control's spelling: HEIGHT, LEFT, POSITION, TOP, WIDTH
/// and Z-INDEX in upper case, a plain number of a length in pixels ("left:100" is "LEFT: 100px"), all properties
/// rejoined with "; ". The order and the other properties stay, comments go.
[[nodiscard]] QString normalise_style(QStringView style);

/// True for a style value that places its element ("POSITION: absolute" or another place than "static").
[[nodiscard]] bool is_positioned(QStringView style);

/// The value of a property of a style, its name in any case; empty when the style has none.
[[nodiscard]] QString style_property(QStringView style, QStringView name);

/// `style` with the property set to `value`, appended when it has none.
[[nodiscard]] QString with_style_property(QStringView style, const QString& name, const QString& value);

/// The tag with `style` as its style value, always in quotes, or with a new style attribute behind the tag's name when
/// it had none.
[[nodiscard]] QString tag_with_style(QString tag, const QString& style);

}  // namespace pondera
