#include "elements/image/picture_probe.h"

#include <QFileInfo>
#include <QImageReader>
#include <QSet>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestPicture = 1024;  // decoded, in MiB: a camera's picture of 200 megapixels

bool is_shown_by_browsers(const QByteArray& format) {
    static const QSet<QByteArray> kFormats{"gif", "jpeg", "jpg", "png", "svg", "webp", "bmp", "ico"};
    return kFormats.contains(format.toLower());
}

}  // namespace

std::expected<Picture, QString> probe_picture(const QString& path, const QSize& preview_size) {
    if (path.isEmpty()) return std::unexpected(u"Insert all required data."_s);
    const QFileInfo file(path);
    if (!file.isFile()) return std::unexpected(u"The file \"%1\" does not exist."_s.arg(path));

    QImageReader::setAllocationLimit(kLargestPicture);
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!reader.canRead()) return std::unexpected(u"\"%1\" is not a picture that can be read."_s.arg(file.fileName()));
    if (!is_shown_by_browsers(reader.format()))
        return std::unexpected(
            u"Browsers do not show pictures of the kind %1. Choose a GIF, JPEG, PNG, WebP, BMP or SVG picture."_s.arg(
                QString::fromLatin1(reader.format().toUpper())));

    const QSize stored = reader.size();
    if (stored.width() > preview_size.width() || stored.height() > preview_size.height())
        reader.setScaledSize(stored.scaled(preview_size, Qt::KeepAspectRatio).expandedTo({1, 1}));
    const QImage preview = reader.read();
    if (preview.isNull()) return std::unexpected(u"The picture \"%1\" is damaged."_s.arg(file.fileName()));

    const bool is_turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    return Picture{path, is_turned ? stored.transposed() : stored, QPixmap::fromImage(preview)};
}

QStringList picture_filters() {
    return {u"Pictures (*.gif *.jpg *.jpeg *.jpe *.png *.webp *.bmp *.svg *.ico)"_s, u"All Files (*)"_s};
}

}  // namespace pondera
