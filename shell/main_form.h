#pragma once

#include <QMainWindow>

#include "shell/command_actions.h"
#include "shell/shell_workbench.h"
#include "shell/status_bar.h"

class QStackedWidget;

namespace pondera {

class DHTMLEdit;
class FolderWatch;
class ModeTabs;
class SiteTree;
class StartPage;
class TextToolbar;
class Toolbar;
class WebBrowser;

/// The main window. It owns the controls, builds menus and toolbar from the command table, follows the workbench's
/// state and switches between edit and browse mode; it knows no feature.
class MainForm : public QMainWindow {
    Q_OBJECT

  public:
    /// All that is given must outlive the window; `settings` has the group "Parametri" open.
    MainForm(const Roots& roots, Prompts& prompts, QSettings& settings);
    ~MainForm() override;

    ShellWorkbench& workbench() { return workbench_; }

    /// Edit mode: the page that the browse view shows becomes the page under edit. Refused for an editing copy and for
    /// a page that cannot be loaded.
    void Modalità_edit();

    /// Browse mode: saves the page and shows it as a visitor sees it. A page that cannot be saved stays in edit mode.
    void Modalità_Browse();

    /// Follows the browse view: the page of the Website that it shows becomes the current page.
    void AGG_Browse_mode();

    /// Exit: closes the window, which ends the program, when unsaved changes may go.
    void FileExit();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void build_toolbars();
    void build_menu_bar();
    void build_centre();
    void build_tree();
    void follow_workbench();
    void follow_editor();
    void follow_browser();

    void show_website();
    void show_tree();
    void show_page();
    void focus_page();
    void show_recent();
    void show_context_menu(const QPoint& position);
    void show_mode(bool browsing);
    void refresh();

    /// Sets the menus and toolbars for the state of the page in edit mode.
    void menu_stato();

    /// Sets the menus and toolbars for browse mode.
    void menu_NAV();

    void show_situation(const Situation& situation);

    StatusBar* status_bar_;
    StatusProgress progress_;
    DHTMLEdit* editor_;
    WebBrowser* browser_;
    ShellWorkbench workbench_;
    CommandActions actions_;
    Toolbar* toolbar_ = nullptr;
    TextToolbar* text_toolbar_ = nullptr;
    SiteTree* tree_ = nullptr;
    FolderWatch* folder_watch_ = nullptr;
    QDockWidget* tree_dock_ = nullptr;
    QMenu* recent_ = nullptr;
    QStackedWidget* centre_ = nullptr;
    StartPage* start_page_ = nullptr;
    ModeTabs* tabs_ = nullptr;
    QStackedWidget* views_ = nullptr;
    bool refreshing_ = false;
};

}  // namespace pondera
