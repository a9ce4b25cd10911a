#pragma once

#include <QDialog>

class QLabel;

namespace pondera {

class CWinInetConnection;
class InternetFunctions;
class Workbench;

/// Shows the state of the connection, as of its last `Refresh`, and lets the person work off line; it is refreshed
/// then.
class frmConnectionState : public QDialog {
    Q_OBJECT

  public:
    frmConnectionState(Workbench& workbench, CWinInetConnection& connection, const InternetFunctions& functions);

  private:
    void show_state();
    void work_off_line(bool on);

    Workbench& workbench_;
    CWinInetConnection& connection_;
    const InternetFunctions& functions_;
    QLabel* sentence_;
    QLabel* advice_;
    QLabel* details_;
};

/// The same for a machine that is not connected, or for a program that is off line.
class frmConnectionState1 : public frmConnectionState {
    Q_OBJECT

  public:
    frmConnectionState1(Workbench& workbench, CWinInetConnection& connection, const InternetFunctions& functions);
};

}  // namespace pondera
