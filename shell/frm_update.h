#pragma once

#include <QDialog>

namespace pondera {

/// Tells that the program is older than the installed HTML component, with a link to the maker's site.
class frmUpdate : public QDialog {
    Q_OBJECT

  public:
    explicit frmUpdate(QWidget* parent);
};

}  // namespace pondera
