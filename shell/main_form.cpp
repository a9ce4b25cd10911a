#include "shell/main_form.h"

#include <QtWidgets>

#include "elements/image/insert_picture.h"
#include "shell/browsing_rules.h"
#include "shell/command_table.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/frm_splash.h"
#include "shell/menus.h"
#include "shell/mode_tabs.h"
#include "shell/pages/folder_watch.h"
#include "shell/pages/tree_commands.h"
#include "shell/site_tree.h"
#include "shell/start_page.h"
#include "shell/text_toolbar.h"
#include "shell/toolbar.h"
#include "shell/web_browser.h"
#include "shell/website/recent_websites.h"
#include "site/website_listing.h"
#include "workbench/prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kGeometry = "Window Geometry"_L1;
constexpr QSize kFirstSize{1180, 780};

}  // namespace

MainForm::MainForm(const Roots& roots, Prompts& prompts, QSettings& settings)
    : status_bar_(new StatusBar(this)),
      editor_(new DHTMLEdit(this)),
      browser_(new WebBrowser(this)),
      workbench_(roots, *editor_, prompts, progress_, settings),
      actions_(
          command_table(), [this](const Command& command) { workbench_.run(command); }, this) {
    setObjectName("MainForm"_L1);
    editor_->setObjectName("DHTMLEdit1"_L1);
    setWindowTitle(start_caption());
    setStatusBar(status_bar_);
    progress_.set_bar(status_bar_);
    workbench_.set_window(this);

    build_toolbars();
    build_menu_bar();
    build_centre();
    build_tree();
    follow_workbench();
    follow_editor();
    follow_browser();

    if (!restoreGeometry(settings.value(kGeometry).toByteArray()))
        resize(kFirstSize.boundedTo(screen()->availableSize()));
    show_website();
    refresh();
}

MainForm::~MainForm() {
    // The controls are deleted after the workbench that their signals would reach.
    editor_->disconnect(this);
    browser_->disconnect(this);
}

void MainForm::build_toolbars() {
    text_toolbar_ = new TextToolbar(
        [this](EditCommand command, const QString& value) {
            editor_->execute(command, value);
            editor_->setFocus();
        },
        this);
    toolbar_ = new Toolbar(
        actions_, [this] { return workbench_.website_folder(); }, this);
    for (QToolBar* bar : {static_cast<QToolBar*>(text_toolbar_), static_cast<QToolBar*>(toolbar_)}) {
        bar->setMovable(false);
        bar->setContextMenuPolicy(Qt::PreventContextMenu);
        addToolBar(bar);
    }
}

void MainForm::build_menu_bar() {
    build_menus(*menuBar(), actions_);
    actions_.action(u"Modo_edit"_s)->setCheckable(true);
    actions_.action(u"Modo_Browse"_s)->setCheckable(true);

    recent_ = new QMenu(u"&Recent Websites"_s, this);
    recent_->setObjectName("recent_websites"_L1);
    auto* file = menuBar()->findChild<QMenu*>(u"menu_file"_s);
    file->insertMenu(actions_.action(u"mnu_settings"_s), recent_);
    file->insertSeparator(actions_.action(u"mnu_settings"_s));

    for (QMenu* menu : menuBar()->findChildren<QMenu*>()) {
        menu->installEventFilter(this);
        connect(menu, &QMenu::aboutToShow, this, &MainForm::refresh);
    }
}

void MainForm::build_centre() {
    start_page_ = new StartPage(actions_, this);
    connect(start_page_, &StartPage::websiteChosen, this,
            [this](const QString& website) { workbench_.open_website(website); });

    tabs_ = new ModeTabs(this);
    connect(tabs_, &ModeTabs::modeChosen, this, [this](bool browse) { workbench_.set_browsing(browse); });

    views_ = new QStackedWidget;
    views_->addWidget(editor_);
    views_->addWidget(browser_);
    auto* work = new QWidget;
    auto* lines = new QVBoxLayout(work);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(tabs_);
    lines->addWidget(views_, 1);

    centre_ = new QStackedWidget;
    centre_->addWidget(start_page_);
    centre_->addWidget(work);
    setCentralWidget(centre_);
}

void MainForm::build_tree() {
    tree_ = new SiteTree(this);
    connect(tree_, &SiteTree::pageChosen, this, [this](const QString& page) {
        if (page != workbench_.page() && !workbench_.load(page)) tree_->mark_current(workbench_.page());
        // The browse view may have wandered from the current page; choosing it leads back.
        if (workbench_.browsing() && browser_->shown_file() != workbench_.page())
            browser_->show_page(workbench_.page());
    });
    new TreeCommands(*tree_, workbench_, this);
    folder_watch_ = new FolderWatch(this);
    tree_dock_ = new QDockWidget(u"Pages"_s, this);
    tree_dock_->setObjectName("tree_dock"_L1);
    tree_dock_->setFeatures(QDockWidget::DockWidgetClosable);
    auto* title = new QLabel(u"Pages"_s);
    title->setObjectName("tree_title"_L1);
    tree_dock_->setTitleBarWidget(title);
    tree_dock_->setWidget(tree_);
    addDockWidget(Qt::LeftDockWidgetArea, tree_dock_);
    resizeDocks({tree_dock_}, {230}, Qt::Horizontal);

    auto* to_tree = new QShortcut(QKeySequence(u"Ctrl+3"_s), this);
    connect(to_tree, &QShortcut::activated, this, [this] {
        tree_dock_->show();
        tree_->setFocus();
    });
    QAction* toggle = tree_dock_->toggleViewAction();
    toggle->setObjectName("mnu_tree"_L1);
    toggle->setText(u"&Pages"_s);
    menuBar()->findChild<QMenu*>(u"menu_view"_s)->addAction(toggle);
}

void MainForm::follow_workbench() {
    connect(&workbench_, &ShellWorkbench::websiteChanged, this, &MainForm::show_website);
    connect(&workbench_, &ShellWorkbench::treeChanged, this, &MainForm::show_tree);
    connect(&workbench_, &ShellWorkbench::treeChanged, this, &MainForm::show_recent);
    connect(folder_watch_, &FolderWatch::changed, this, &MainForm::show_tree);
    connect(&workbench_, &ShellWorkbench::pageLoaded, this, &MainForm::show_page);
    connect(&workbench_, &ShellWorkbench::stateChanged, this, &MainForm::refresh);
    connect(&workbench_, &ShellWorkbench::browserReloadRequested, browser_, &QWebEngineView::reload);
    connect(&workbench_, &ShellWorkbench::modeRequested, this,
            [this](bool browse) { browse ? Modalità_Browse() : Modalità_edit(); });
    // A command asks to quit from within itself: the window closes when that command has ended.
    connect(&workbench_, &ShellWorkbench::quitRequested, this, &MainForm::FileExit, Qt::QueuedConnection);
}

void MainForm::follow_editor() {
    connect(editor_, &DHTMLEdit::stateChanged, this, &MainForm::refresh);
    connect(editor_, &DHTMLEdit::contextMenuRequested, this, &MainForm::show_context_menu);
    connect(
        editor_, &DHTMLEdit::filesDropped, this,
        [this](const QStringList& paths) {
            for (const QString& path : paths) insert_picture(workbench_, path);
        },
        Qt::QueuedConnection);
    connect(
        editor_, &DHTMLEdit::picturePasted, this,
        [this](const QImage& picture) { insert_pasted_picture(workbench_, picture); }, Qt::QueuedConnection);
    connect(
        editor_, &DHTMLEdit::restoredAfterCrash, this,
        [this] {
            workbench_.prompts().tell(
                u"The page had to be restored. Please check whether your last changes are still there, and save it."_s);
        },
        Qt::QueuedConnection);
}

void MainForm::follow_browser() {
    connect(browser_, &WebBrowser::pageShown, this, &MainForm::AGG_Browse_mode, Qt::QueuedConnection);
    connect(
        browser_, &WebBrowser::outsideLink, this, [](const QUrl& address) { QDesktopServices::openUrl(address); },
        Qt::QueuedConnection);
    connect(
        browser_, &WebBrowser::missingPage, this,
        [this] {
            workbench_.prompts().tell(
                u"The selected page do not exist or has been deleted. Modify or cancel this link"_s);
        },
        Qt::QueuedConnection);
}

void MainForm::Modalità_edit() {
    if (!workbench_.browsing()) return;
    const auto page = page_to_edit(browser_->shown_file(), workbench_.page());
    if (!page) {
        workbench_.prompts().tell(u"Error: link to an editing file."_s);
        return;
    }
    if (*page != workbench_.page() && !workbench_.load(*page)) return;
    show_mode(false);
    editor_->setFocus();
}

void MainForm::Modalità_Browse() {
    const QString page = workbench_.page();
    if (workbench_.browsing() || page.isEmpty()) return;
    const bool published = QFile::exists(QDir(workbench_.website_folder()).filePath(page));
    if ((editor_->modified() || !published) && !workbench_.save()) return;
    browser_->show_page(page);
    show_mode(true);
    browser_->setFocus();
}

void MainForm::AGG_Browse_mode() {
    if (!workbench_.browsing()) return;
    const auto page = page_to_edit(browser_->shown_file(), workbench_.page());
    if (page && *page != workbench_.page()) workbench_.load(*page);
}

void MainForm::FileExit() {
    close();
}

void MainForm::show_mode(bool browsing) {
    if (!browsing) browser_->show_nothing();
    views_->setCurrentWidget(browsing ? static_cast<QWidget*>(browser_) : editor_);
    workbench_.mode_changed(browsing);
}

void MainForm::show_website() {
    const QString website = workbench_.website();
    const bool open = !website.isEmpty();
    setWindowTitle(open ? u"Pondera   VANTILE PRO - "_s + website : start_caption());
    browser_->set_website_folder(workbench_.website_folder());
    if (workbench_.browsing()) show_mode(false);
    centre_->setCurrentIndex(open ? 1 : 0);
    tree_dock_->setVisible(open);
    folder_watch_->watch(workbench_.website_folder());
    status_bar_->show_page(workbench_.page_label());
    show_recent();
}

void MainForm::show_tree() {
    const QString folder = workbench_.website_folder();
    tree_->show_website(workbench_.website(), folder.isEmpty() ? QStringList() : list_pages(folder));
}

void MainForm::show_page() {
    status_bar_->show_page(workbench_.page_label());
    tree_->mark_current(workbench_.page());
    if (workbench_.browsing() && browser_->shown_file() != workbench_.page()) browser_->show_page(workbench_.page());
    // Queued: the form that opened the page is still closing, and the window gets the focus back only then.
    if (!workbench_.browsing()) QMetaObject::invokeMethod(this, &MainForm::focus_page, Qt::QueuedConnection);
}

void MainForm::focus_page() {
    editor_->take_focus();
}

void MainForm::show_recent() {
    recent_->clear();
    const QStringList websites = recent_websites(workbench_.settings(), workbench_.roots());
    for (const QString& website : websites) {
        recent_->addAction(QString(website).replace(u'&', u"&&"_s), this,
                           [this, website] { workbench_.open_website(website); });
    }
    recent_->setEnabled(!websites.isEmpty());
    start_page_->show_recent(websites);
}

void MainForm::show_context_menu(const QPoint& position) {
    refresh();
    auto* menu = new QMenu(this);
    menu->setObjectName("context_menu"_L1);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fill_context_menu(*menu, actions_);
    menu->popup(position);
}

void MainForm::refresh() {
    // Asking the editing control may deliver its next change before the answer: that one is asked for by itself.
    if (refreshing_) return;
    refreshing_ = true;
    workbench_.browsing() ? menu_NAV() : menu_stato();
    refreshing_ = false;
}

void MainForm::menu_stato() {
    Situation situation{.website = !workbench_.website().isEmpty(), .editing = !workbench_.page().isEmpty()};
    if (situation.editing) situation.editor = EditorState(editor_->state());
    show_situation(situation);
}

void MainForm::menu_NAV() {
    show_situation({.website = true, .editing = false});
}

void MainForm::show_situation(const Situation& situation) {
    actions_.refresh(situation);
    const bool browsing = workbench_.browsing();
    actions_.action(u"Modo_edit"_s)->setChecked(situation.website && !browsing);
    actions_.action(u"Modo_Browse"_s)->setChecked(browsing);
    tabs_->show_mode(browsing);
    toolbar_->refresh();
    text_toolbar_->refresh(situation);
    status_bar_->show_modified(situation.editor.modified());
}

void MainForm::closeEvent(QCloseEvent* event) {
    if (workbench_.running() || !workbench_.may_leave_page()) {
        event->ignore();
        return;
    }
    workbench_.settings().setValue(kGeometry, saveGeometry());
    event->accept();
}

bool MainForm::eventFilter(QObject* watched, QEvent* event) {
    auto* menu = qobject_cast<QMenu*>(watched);
    if (menu == nullptr || event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) {
        return QMainWindow::eventFilter(watched, event);
    }
    if (const Command* command = actions_.command(menu->activeAction())) workbench_.show_help(command->help);
    return true;
}

}  // namespace pondera
