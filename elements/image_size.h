#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>

namespace pondera {

/// By what an image is found again in its page's text.
struct ImageTraits {
    QPoint position;  ///< left and top in pixels
    QString level;    ///< Z-INDEX, empty when it has none
    QString name;
};

/// The page text with the image's tag set to a new size. The tag is the one that matches most of left, top, level and
/// name, and at least three of them; nothing when no tag does, or when several match equally well, for then the text
/// does not tell which one is meant.
[[nodiscard]] std::optional<QString> page_with_image_size(const QString& page, const ImageTraits& image,
                                                          const QSize& size);

/// One image tag set to a new size, in the form that it uses (style properties "HEIGHT: 90px", attributes "height=90",
/// or both); a tag without a size gets style properties.
[[nodiscard]] QString image_with_size(const QString& tag, const QSize& size);

inline constexpr int kGreatestImageLength = 30000;

/// A width or height as typed into a size field; nothing unless it is a whole number from 1 to 30000.
[[nodiscard]] std::optional<int> parse_image_length(const QString& text);

}  // namespace pondera
