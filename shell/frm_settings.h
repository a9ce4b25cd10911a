#pragma once

#include <QDialog>

class QCheckBox;
class QSettings;

namespace pondera {

/// The settings that start the wizard with the program: "Wizard" is off only when it is "0".
[[nodiscard]] bool wizard_at_start(const QSettings& settings);
void set_wizard_at_start(QSettings& settings, bool on);

/// Help pages that open by themselves when a command is chosen: "Automatic Help" is on only when it is "1".
[[nodiscard]] bool automatic_help(const QSettings& settings);

/// The settings dialog; OK writes them.
class frmSettings : public QDialog {
    Q_OBJECT

  public:
    frmSettings(QSettings& settings, QWidget* parent);

    void accept() override;

  private:
    QSettings& settings_;
    QCheckBox* wizard_;
    QCheckBox* help_;
};

}  // namespace pondera
