#pragma once

#include <QElapsedTimer>
#include <QStatusBar>

#include "workbench/progress.h"

class QLabel;
class QProgressBar;
class QToolButton;

namespace pondera {

/// `StatusBar1`: the label of the page under edit, whether it has unsaved changes, and during long work a two-word
/// message beside `ProgressBar1` and, when the work can be cancelled, the button `cmd_cancel`.
class StatusBar : public QStatusBar {
    Q_OBJECT

  public:
    explicit StatusBar(QWidget* parent);

    void show_page(const QString& label);
    void show_modified(bool modified);
    void show_work(const QString& what, const QString& state, int steps, Cancelling cancelling);
    void show_steps(int steps);
    void show_done(int done);
    void hide_work();

    [[nodiscard]] QToolButton& cancel_button() const { return *cancel_; }

  private:
    QLabel* page_;
    QLabel* modified_;
    QLabel* what_;
    QLabel* state_;
    QProgressBar* bar_;
    QToolButton* cancel_;
};

/// Shows long work in a status bar and lets the window paint between its steps, a few times a second. Clicks and keys
/// wait until the work is done; while it can be cancelled they are dropped, but for Esc and the cancel button.
class StatusProgress : public QObject, public Progress {
    Q_OBJECT

  public:
    /// Without a bar the progress is shown nowhere.
    void set_bar(StatusBar* bar) { bar_ = bar; }

    void begin(const QString& what, const QString& state, int steps, Cancelling cancelling) override;
    void set_steps(int steps) override;
    void advance(int done) override;
    [[nodiscard]] bool cancelled() const override { return cancelled_; }
    void end() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void let_paint();

    StatusBar* bar_ = nullptr;
    QElapsedTimer painted_;
    bool can_be_cancelled_ = false;
    bool cancelled_ = false;
};

}  // namespace pondera
