#pragma once

#include <QList>
#include <QToolBar>

#include <functional>

namespace pondera {

class CommandActions;

/// One key of the toolbar and the command that it runs. A key without name is a separator.
struct ToolbarKey {
    QString key;
    QString caption;
    QString icon;
    QString command;
};

/// The toolbar's keys from left to right.
[[nodiscard]] const QList<ToolbarKey>& toolbar_keys();

/// The command that a key runs for a Website in `website_folder`: its own, but "menu" opens the menu management when
/// both files of a generated cascade menu are there and creates a new menu otherwise.
[[nodiscard]] QString command_of_key(const ToolbarKey& key, const QString& website_folder);

/// `Toolbar1`: one action per key, named as the key, which follows its command (enabled, checked) and runs it. A key
/// whose command does not exist is there, disabled.
class Toolbar : public QToolBar {
    Q_OBJECT

  public:
    Toolbar(const CommandActions& actions, std::function<QString()> website_folder, QWidget* parent);

    /// Makes all keys follow their commands again; for use when the command of a key may have become another.
    void refresh();

  private:
    const CommandActions& actions_;
    std::function<QString()> website_folder_;
};

}  // namespace pondera
