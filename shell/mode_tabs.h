#pragma once

#include <QWidget>

class QPushButton;

namespace pondera {

/// The two labels above the page, `lblEdit` and `lblBrowse`: they look like tabs, show the mode and switch it.
class ModeTabs : public QWidget {
    Q_OBJECT

  public:
    explicit ModeTabs(QWidget* parent);

    void show_mode(bool browsing);

  signals:
    /// The person asked for a mode; the tabs keep showing the old one until show_mode is called.
    void modeChosen(bool browse);

  private:
    QPushButton* add_tab(const QString& name, const QString& caption, const QString& icon, bool browse);

    QPushButton* edit_;
    QPushButton* browse_;
};

}  // namespace pondera
