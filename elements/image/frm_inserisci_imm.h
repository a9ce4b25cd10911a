#pragma once

#include <QDialog>

#include <functional>
#include <optional>

#include "elements/image/picture_probe.h"
#include "workbench/command.h"

class QLabel;
class QLineEdit;

namespace pondera {

class PicturePreview;
class Prompts;

/// What the dialog chooses a picture for.
struct PictureUse {
    QString caption;       ///< "Insert Image"
    QString picker_title;  ///< "Select Image"
    QString start_folder;  ///< where the file picker begins
    Help help;
};

/// Chooses a picture file: typed, picked or dropped on the preview, which shows it with its size. OK is refused until
/// the file is a picture that browsers show.
class Frm_Inserisci_Imm : public QDialog {
    Q_OBJECT

  public:
    Frm_Inserisci_Imm(PictureUse use, Prompts& prompts, const std::function<void(const Help&)>& show_help,
                      QWidget* parent = nullptr);

    /// The chosen picture, after the form was accepted.
    [[nodiscard]] const Picture& picture() const { return *picture_; }

    void accept() override;

  private:
    void choose();
    void show_file(const QString& path);
    void probe();

    PictureUse use_;
    Prompts& prompts_;
    PicturePreview* preview_;
    QLineEdit* path_;
    QLabel* size_;
    std::expected<Picture, QString> picture_;
};

}  // namespace pondera
