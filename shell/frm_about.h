#pragma once

#include <QDialog>

namespace pondera {

/// The about box: name, version, what the program is.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    explicit frmAbout(QWidget* parent);
};

}  // namespace pondera
