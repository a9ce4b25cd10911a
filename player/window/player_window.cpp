#include "player/window/player_window.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStandardPaths>
#include <QToolBar>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineView>

#include "player/window/package_guard.h"
#include "player/window/player_page.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZoomStep = 1.1;
constexpr QSize kSize(1024, 740);
constexpr QSize kFrame(0, 40);  // the title's height, or a little more

const QString kToolbarLook =
    u"QToolBar { background: #ffffff; border: none; border-bottom: 1px solid #dfe5eb; padding: 3px 4px; }"
    "QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 5px 10px; color: #26323f; }"
    "QToolButton:hover:enabled { background: #e8f0f8; } QToolButton:disabled { color: #9aa6b2; }"_s;

/// The folder of the package that a home page belongs to: that of its folder.
QString package_of(const QString& home_page) {
    return QFileInfo(QFileInfo(home_page).path()).path();
}

QString website_of(const QString& home_page) {
    return QFileInfo(QFileInfo(home_page).path()).fileName();
}

}  // namespace

PlayerWindow::PlayerWindow(const QString& home_page)
    : home_page_(QFileInfo(home_page).absoluteFilePath()),
      profile_(new QWebEngineProfile(this)),
      view_(new QWebEngineView(this)) {
    setObjectName("PlayerWindow"_L1);
    setWindowTitle(website_of(home_page_));
    setWindowIcon(QIcon(u"%1/Install %2/pnd.ico"_s.arg(package_of(home_page_), website_of(home_page_))));
    profile_->setUrlRequestInterceptor(new PackageGuard(package_of(home_page_), profile_));
    set_page(new PlayerPage(profile_, package_of(home_page_), view_));
    build_toolbar();
    connect(profile_, &QWebEngineProfile::downloadRequested, this,
            [this](QWebEngineDownloadRequest* download) { save_download(*download); });
    connect(
        view_, &QWebEngineView::loadFinished, this, [this](bool fine) { fine ? emit Shown() : emit Failed(); },
        Qt::SingleShotConnection);
    connect(view_, &QWebEngineView::renderProcessTerminated, this, [this](auto status, int) {
        if (status != QWebEnginePage::NormalTerminationStatus) emit Failed();
    });
    resize(kSize.boundedTo(screen()->availableSize() - kFrame));
    view_->setUrl(QUrl::fromLocalFile(home_page_));
    view_->setFocus();
}

PlayerWindow::PlayerWindow(PlayerPage* page, PlayerWindow& owner)
    : QMainWindow(&owner), home_page_(owner.home_page_), view_(new QWebEngineView(this)) {
    setObjectName("PopupWindow"_L1);
    setAttribute(Qt::WA_DeleteOnClose);
    page->setParent(view_);
    set_page(page);
    resize(800, 600);
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    connect(page, &QWebEnginePage::windowCloseRequested, this, &QWidget::close);
    connect(page, &QWebEnginePage::geometryChangeRequested, this, [this](const QRect& wanted) {
        if (wanted.isValid()) resize(wanted.size());
    });
    // A window that was opened for a link out of the package stays empty: it never shows.
    connect(page, &PlayerPage::LeftPackage, this, [this] {
        if (view_->history()->count() == 0) deleteLater();
    });
    connect(page, &QWebEnginePage::loadFinished, this, &QWidget::show, Qt::SingleShotConnection);
}

PlayerWindow::~PlayerWindow() {
    // Pages go before the profile that they are shown with.
    qDeleteAll(findChildren<PlayerWindow*>(Qt::FindDirectChildrenOnly));
    delete view_;
}

void PlayerWindow::set_page(PlayerPage* page) {
    view_->setObjectName("player_view"_L1);
    view_->setPage(page);
    setCentralWidget(view_);
    connect(page, &PlayerPage::WindowWanted, this, &PlayerWindow::open_window);
    connect(page, &QWebEnginePage::fullScreenRequested, this, [this](QWebEngineFullScreenRequest request) {
        request.accept();
        show_full_screen(request.toggleOn());
    });
    connect(view_, &QWebEngineView::titleChanged, this,
            [this](const QString& title) { setWindowTitle(title.isEmpty() ? website_of(home_page_) : title); });
    new QShortcut(QKeySequence(u"Ctrl+0"_s), this, [this] { view_->setZoomFactor(1); });
}

void PlayerWindow::build_toolbar() {
    auto* bar = addToolBar(u"Pages"_s);
    bar->setObjectName("player_toolbar"_L1);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->setStyleSheet(kToolbarLook);
    const auto add = [&](const QString& name, const QString& caption, const QList<QKeySequence>& keys, auto run) {
        QAction* action = bar->addAction(caption, this, run);
        action->setObjectName(name);
        action->setShortcuts(keys);
        action->setToolTip(u"%1 (%2)"_s.arg(caption, keys.first().toString(QKeySequence::NativeText)));
        return action;
    };
    QAction* back = add(u"back"_s, u"Back"_s, {QKeySequence(u"Alt+Left"_s)}, [this] { view_->back(); });
    QAction* forward = add(u"forward"_s, u"Forward"_s, {QKeySequence(u"Alt+Right"_s)}, [this] { view_->forward(); });
    add(u"home"_s, u"Home"_s, {QKeySequence(u"Alt+Home"_s)},
        [this] { view_->setUrl(QUrl::fromLocalFile(home_page_)); });
    bar->addSeparator();
    add(u"zoom_in"_s, u"Zoom In"_s, {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)},
        [this] { zoom_by(kZoomStep); });
    add(u"zoom_out"_s, u"Zoom Out"_s, {QKeySequence(u"Ctrl+-"_s)}, [this] { zoom_by(1 / kZoomStep); });
    add(u"full_screen"_s, u"Full Screen"_s, {QKeySequence(Qt::Key_F11)}, [this] { show_full_screen(!isFullScreen()); });
    // The toolbar is hidden in full screen, and with it its keys.
    for (QAction* action : bar->actions()) addAction(action);
    new QShortcut(Qt::Key_Escape, this, [this] { show_full_screen(false); });

    const auto refresh = [this, back, forward] {
        back->setEnabled(view_->history()->canGoBack());
        forward->setEnabled(view_->history()->canGoForward());
    };
    refresh();
    connect(view_, &QWebEngineView::loadFinished, this, refresh);
    connect(view_, &QWebEngineView::urlChanged, this, refresh);
}

void PlayerWindow::open_window(PlayerPage* page) {
    auto* opener = profile_ == nullptr ? qobject_cast<PlayerWindow*>(parentWidget()) : this;
    new PlayerWindow(page, *opener);
}

void PlayerWindow::show_full_screen(bool on) {
    if (on == isFullScreen()) return;
    if (auto* bar = findChild<QToolBar*>("player_toolbar"_L1)) bar->setVisible(!on);
    if (on)
        showFullScreen();
    else
        showNormal();
}

void PlayerWindow::save_download(QWebEngineDownloadRequest& download) {
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    const QString path = QFileDialog::getSaveFileName(
        this, u"Save File"_s, folder.filePath(QFileInfo(download.downloadFileName()).fileName()));
    if (path.isEmpty()) return download.cancel();
    download.setDownloadDirectory(QFileInfo(path).path());
    download.setDownloadFileName(QFileInfo(path).fileName());
    connect(&download, &QWebEngineDownloadRequest::stateChanged, this, [this, &download, path](auto state) {
        if (state == QWebEngineDownloadRequest::DownloadInterrupted)
            QMessageBox::warning(this, windowTitle(),
                                 u"The file was not saved:\n%1"_s.arg(download.interruptReasonString()));
    });
    download.accept();
}

void PlayerWindow::zoom_by(double factor) {
    view_->setZoomFactor(view_->zoomFactor() * factor);
}

}  // namespace pondera
