#include "elements/image/picture_preview.h"

#include <QDragEnterEvent>
#include <QMimeData>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(420, 260);
constexpr int kBorder = 8;

QString dropped_file(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

}  // namespace

PicturePreview::PicturePreview(QString hint, QWidget* parent) : QLabel(parent), hint_(std::move(hint)) {
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setForegroundRole(QPalette::PlaceholderText);
    setFixedSize(kSize);
    setAcceptDrops(true);
    show_hint();
}

void PicturePreview::show_picture(const QPixmap& picture) {
    QSizeF shown_size = picture.size();
    const QSizeF logical_room = QSizeF(room()) / devicePixelRatioF();
    if (shown_size.width() > logical_room.width() || shown_size.height() > logical_room.height())
        shown_size.scale(logical_room, Qt::KeepAspectRatio);
    QPixmap shown = picture;
    shown.setDevicePixelRatio(picture.width() / shown_size.width());
    setPixmap(shown);
}

void PicturePreview::show_hint() {
    setText(hint_);
}

QSize PicturePreview::room() const {
    return (QSizeF(kSize - 2 * QSize(kBorder, kBorder)) * devicePixelRatioF()).toSize();
}

void PicturePreview::dragEnterEvent(QDragEnterEvent* event) {
    if (!dropped_file(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void PicturePreview::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    emit fileDropped(dropped_file(*event->mimeData()));
}

}  // namespace pondera
