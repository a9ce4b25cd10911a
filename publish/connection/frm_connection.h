#pragma once

#include <QDialog>

#include <functional>

class QProgressBar;
class QTimer;

namespace pondera {

/// Looks for the connection for some seconds and shows how long it still will; accepted as soon as it is there.
class frmConnection : public QDialog {
    Q_OBJECT

  public:
    /// `is_connected` is asked at each step of the bar.
    frmConnection(QWidget* parent, std::function<bool()> is_connected);

  private:
    void advance();

    std::function<bool()> is_connected_;
    QProgressBar* bar_;
    QTimer* timer_;
};

}  // namespace pondera
