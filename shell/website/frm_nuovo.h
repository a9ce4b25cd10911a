#pragma once

#include <QDialog>

class QLineEdit;

namespace pondera {

class Workbench;

/// Asks the name of a new Website; closes with OK only on a name that the rules allow.
class Frm_Nuovo : public QDialog {
    Q_OBJECT

  public:
    explicit Frm_Nuovo(Workbench& workbench);

    [[nodiscard]] QString name() const;

    void accept() override;

  private:
    Workbench& workbench_;
    QLineEdit* name_;
};

}  // namespace pondera
