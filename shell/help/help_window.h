#pragma once

#include <QMainWindow>

#include "base/roots.h"
#include "shell/help/help_arguments.h"

class QWebEngineView;

namespace pondera {

/// The help viewer's window: one help page with back, forward, index and zoom; Esc closes it.
class HelpWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit HelpWindow(const Roots& roots);

    void open(const HelpArguments& arguments);

  private:
    void build_toolbar();
    void show_page(const QString& page);
    void show_missing(const QString& page);
    void zoom_by(double factor);

    Roots roots_;
    QWebEngineView* view_;
};

}  // namespace pondera
