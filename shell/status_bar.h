#pragma once

#include <QElapsedTimer>
#include <QStatusBar>

#include "workbench/progress.h"

class QLabel;
class QProgressBar;

namespace pondera {

/// `StatusBar1`: the label of the page under edit, whether it has unsaved changes, and during long work a two-word
/// message beside `ProgressBar1`.
class StatusBar : public QStatusBar {
    Q_OBJECT

  public:
    explicit StatusBar(QWidget* parent);

    void show_page(const QString& label);
    void show_modified(bool modified);
    void show_work(const QString& what, const QString& state, int steps);
    void show_done(int done);
    void hide_work();

  private:
    QLabel* page_;
    QLabel* modified_;
    QLabel* what_;
    QLabel* state_;
    QProgressBar* bar_;
};

/// Shows long work in a status bar and lets the window paint between its steps, a few times a second; clicks and keys
/// wait until the work is done.
class StatusProgress : public Progress {
  public:
    /// Without a bar the progress is shown nowhere.
    void set_bar(StatusBar* bar) { bar_ = bar; }

    void begin(const QString& what, const QString& state, int steps) override;
    void advance(int done) override;
    void end() override;

  private:
    void let_paint();

    StatusBar* bar_ = nullptr;
    QElapsedTimer painted_;
};

}  // namespace pondera
