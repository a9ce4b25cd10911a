#pragma once

#include <QDialog>

class QCheckBox;
class QListWidget;

namespace pondera {

/// The font that the person wants; an empty name or size leaves the text's own.
struct FontChoice {
    QString font;
    QString size;  ///< the HTML size, "1" to "7"
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

/// Chooses font, size and style of the selected text, with a sample.
class frmFont : public QDialog {
    Q_OBJECT

  public:
    frmFont(const FontChoice& initial, QWidget* parent);

    [[nodiscard]] FontChoice choice() const;

  private:
    void show_sample();

    QListWidget* fonts_;
    QListWidget* sizes_;
    QCheckBox* bold_;
    QCheckBox* italic_;
    QCheckBox* underline_;
    QWidget* sample_;
};

}  // namespace pondera
