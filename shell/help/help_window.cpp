#include "shell/help/help_window.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QShortcut>
#include <QToolBar>
#include <QWebEngineHistory>
#include <QWebEnginePage>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr double kZoomStep = 1.1;

/// Help pages link to each other; all else opens in the system's browser.
class HelpPage : public QWebEnginePage {
  public:
    HelpPage(const Roots& roots, std::function<void(const QString&)> missing, QObject* parent)
        : QWebEnginePage(parent), roots_(roots), missing_(std::move(missing)) {}

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override {
        if (url.scheme() == "data"_L1 || url.scheme() == "about"_L1) return true;
        if (!url.isLocalFile()) {
            QDesktopServices::openUrl(url);
            return false;
        }
        const QString page = u'/' + QDir(roots_.websites()).relativeFilePath(url.toLocalFile());
        if (!help_file(roots_.websites(), page).isEmpty()) return true;
        QMetaObject::invokeMethod(
            this, [this, page] { missing_(page); }, Qt::QueuedConnection);
        return false;
    }

  private:
    const Roots& roots_;
    std::function<void(const QString&)> missing_;
};

}  // namespace

HelpWindow::HelpWindow(const Roots& roots) : roots_(roots), view_(new QWebEngineView(this)) {
    setObjectName("HelpWindow"_L1);
    view_->setObjectName("help_view"_L1);
    view_->setPage(new HelpPage(
        roots_, [this](const QString& page) { show_missing(page); }, view_));
    view_->setContextMenuPolicy(Qt::NoContextMenu);
    setCentralWidget(view_);
    build_toolbar();
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    resize(560, 620);
}

void HelpWindow::open(const HelpArguments& arguments) {
    setWindowTitle(arguments.caption.isEmpty() ? u"Help"_s : arguments.caption);
    if (arguments.position) move(*arguments.position);
    show_page(arguments.page.isEmpty() ? help_index() : arguments.page);
}

void HelpWindow::build_toolbar() {
    auto* bar = addToolBar(u"Help"_s);
    bar->setObjectName("help_toolbar"_L1);
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](const QString& name, const QString& caption, const QList<QKeySequence>& keys, auto run) {
        QAction* action = bar->addAction(caption, this, run);
        action->setObjectName(name);
        action->setShortcuts(keys);
        action->setToolTip(u"%1 (%2)"_s.arg(plain_caption(caption), keys.first().toString(QKeySequence::NativeText)));
        return action;
    };
    QAction* back = add(u"back"_s, u"&Back"_s, {QKeySequence(u"Alt+Left"_s)}, [this] { view_->back(); });
    QAction* forward = add(u"forward"_s, u"&Forward"_s, {QKeySequence(u"Alt+Right"_s)}, [this] { view_->forward(); });
    add(u"index"_s, u"&Index"_s, {QKeySequence(u"Alt+Home"_s)}, [this] { show_page(help_index()); });
    bar->addSeparator();
    add(u"zoom_in"_s, u"Zoom In"_s, {QKeySequence(u"Ctrl++"_s), QKeySequence(u"Ctrl+="_s)},
        [this] { zoom_by(kZoomStep); });
    add(u"zoom_out"_s, u"Zoom Out"_s, {QKeySequence(u"Ctrl+-"_s)}, [this] { zoom_by(1 / kZoomStep); });

    const auto refresh = [this, back, forward] {
        back->setEnabled(view_->history()->canGoBack());
        forward->setEnabled(view_->history()->canGoForward());
    };
    refresh();
    connect(view_, &QWebEngineView::loadFinished, this, refresh);
}

void HelpWindow::show_page(const QString& page) {
    const QString file = help_file(roots_.websites(), page);
    if (file.isEmpty()) {
        show_missing(page);
    } else {
        view_->setUrl(QUrl::fromLocalFile(file));
    }
}

void HelpWindow::show_missing(const QString& page) {
    const QString index = help_file(roots_.websites(), help_index());
    const QString link = index.isEmpty() ? QString()
                                         : u"<p><a href=\"%1\">Show the index of all help pages</a></p>"_s.arg(
                                               QUrl::fromLocalFile(index).toString(QUrl::FullyEncoded));
    view_->setHtml(
        u"<body style=\"font: 15px sans-serif; margin: 40px; color: #26323f\">"
        "<h2>There is no such help page</h2><p>The page \"%1\" was not found in the help folder.</p>%2"_s.arg(
            page.toHtmlEscaped(), link),
        QUrl::fromLocalFile(roots_.websites() + u'/'));
}

void HelpWindow::zoom_by(double factor) {
    view_->setZoomFactor(view_->zoomFactor() * factor);
}

}  // namespace pondera
