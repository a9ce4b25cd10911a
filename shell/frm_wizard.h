#pragma once

#include <QDialog>

class QAction;
class QSettings;

namespace pondera {

class Workbench;

/// The three steps from nothing to a published Website, each with a picture, two sentences and a button that starts its
/// command.
class frmWizard : public QDialog {
    Q_OBJECT

  public:
    /// The steps run those of the window's actions that are named as their commands; `window` may be null, then none
    /// can be run.
    frmWizard(Workbench& workbench, QWidget* window);

  private:
    QWidget* make_step(int number);
    void run(QAction& command, bool comes_back);

    Workbench& workbench_;
};

/// Shows the wizard beside the workbench's window, not modal; one that is open already comes to the front.
void show_wizard(Workbench& workbench);

}  // namespace pondera
