#pragma once

#include <QLabel>

namespace pondera {

/// The framed field of a dialog that shows a picture, or a hint while there is none. A file can be dropped on it,
/// unless drops are switched off.
class PicturePreview : public QLabel {
    Q_OBJECT

  public:
    explicit PicturePreview(QString hint = QStringLiteral("Drop a picture here"), QWidget* parent = nullptr);

    void show_picture(const QPixmap& picture);
    void show_hint();

    /// The room that a picture has, in device pixels.
    [[nodiscard]] QSize room() const;

  signals:
    void fileDropped(const QString& path);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    QString hint_;
};

}  // namespace pondera
