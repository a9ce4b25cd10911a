#pragma once

#include <QWidget>

#include <functional>

class QTimer;

namespace pondera {

/// The caption of the splash window and of the main window while no Website is open.
[[nodiscard]] QString start_caption();

/// The splash window. Its timer `TimerStart` fires once, sets the caption and starts the program; then the window goes.
class frmSplash : public QWidget {
    Q_OBJECT

  public:
    /// `start` creates and shows the main window.
    explicit frmSplash(std::function<void()> start);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void timer_start();

    std::function<void()> start_;
    QTimer* timer_;
};

}  // namespace pondera
