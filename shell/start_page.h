#pragma once

#include <QWidget>

class QVBoxLayout;

namespace pondera {

class CommandActions;

/// What the window shows while no Website is open: new, open, and the Websites that were open last.
class StartPage : public QWidget {
    Q_OBJECT

  public:
    StartPage(const CommandActions& actions, QWidget* parent);

    /// Lists the Websites that were open last, the latest first.
    void show_recent(const QStringList& websites);

  signals:
    void websiteChosen(const QString& name);

  private:
    QWidget* recent_;
    QVBoxLayout* recent_list_;
};

}  // namespace pondera
