#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

#include "base/roots.h"
#include "shell/help_launcher.h"
#include "shell/page/open_page.h"
#include "workbench/workbench.h"

namespace pondera {

/// The program's state that commands work with: the open Website and its page, the mode, and what is asked before
/// changes would be lost. It shows nothing itself; the window follows its signals.
class ShellWorkbench : public QObject, public Workbench {
    Q_OBJECT

  public:
    /// All that is given must outlive the workbench; `settings` has the group "Parametri" open.
    ShellWorkbench(const Roots& roots, EditingControl& editor, Prompts& prompts, Progress& progress,
                   QSettings& settings);

    /// Runs a command of the table; with automatic help its help page is shown first. What the person answered about
    /// unsaved changes holds until the command ends.
    void run(const Command& command) { run(command.help, command.run); }

    /// Runs something that is no row of the table as a command.
    void run(const Help& help, const std::function<void(Workbench&)>& command);

    [[nodiscard]] bool running() const { return running_ > 0; }  ///< a command is at work
    [[nodiscard]] QString page_label() const;                    ///< of the status bar

    void set_window(QWidget* window) { window_ = window; }

    /// The mode as the window shows it now.
    void mode_changed(bool browsing);

    [[nodiscard]] const Roots& roots() const override { return roots_; }
    EditingControl& editor() override { return editor_; }
    Prompts& prompts() override { return prompts_; }
    Progress& progress() override { return progress_; }
    QSettings& settings() override { return settings_; }
    QWidget* window() override { return window_; }
    PopupSize& popup_size() override { return popup_size_; }

    [[nodiscard]] QString website() const override { return website_; }
    [[nodiscard]] QString website_folder() const override;
    [[nodiscard]] QString page() const override { return open_page_.page(); }
    [[nodiscard]] PageKind page_kind() const override { return open_page_.kind(); }
    [[nodiscard]] bool browsing() const override { return browsing_; }

    bool open_website(const QString& name) override;
    void close_website() override;
    bool load(const QString& name) override;
    bool reload() override;
    bool save() override;
    bool may_leave_page() override;
    void give_up_changes() override;
    void refresh_tree() override;
    void show_help(const Help& help) override;
    void set_browsing(bool on) override;
    void quit() override;

  signals:
    void websiteChanged();
    void pageLoaded();
    void treeChanged();
    void stateChanged();
    void modeRequested(bool browse);
    void browserReloadRequested();
    void quitRequested();

  private:
    void page_is_loaded();

    Roots roots_;
    EditingControl& editor_;
    Prompts& prompts_;
    Progress& progress_;
    QSettings& settings_;
    HelpLauncher help_;
    QString browser_version_;
    OpenPage open_page_;
    QPointer<QWidget> window_;
    PopupSize popup_size_;
    QString website_;
    Help last_help_;  ///< of the command last chosen since the page was loaded, else the window's
    bool browsing_ = false;
    bool discarded_ = false;  ///< the person gave up the unsaved changes within the running command
    int running_ = 0;
};

}  // namespace pondera
