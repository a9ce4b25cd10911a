#pragma once

#include <QPixmap>
#include <QSize>
#include <QString>

#include <expected>

namespace pondera {

/// A picture file that browsers can show.
struct Picture {
    QString path;
    QSize size;       ///< in pixels, as browsers show it (turned as its camera said)
    QPixmap preview;  ///< scaled down to fit the size that was asked for
};

/// Reads a picture file chosen by the person. Without one, or with one that is missing, no readable picture or of a
/// format that browsers do not show, the error is the message to show. The content decides on the format, not the
/// file's name.
[[nodiscard]] std::expected<Picture, QString> probe_picture(const QString& path, const QSize& preview_size);

/// The file picker's filters for such pictures.
[[nodiscard]] QStringList picture_filters();

}  // namespace pondera
