#include "shell/web_browser.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QShortcut>
#include <QWebEngineSettings>

#include "shell/browsing_rules.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Decides about every address before it is loaded.
class BrowsedPage : public QWebEnginePage {
  public:
    BrowsedPage(const QString& folder, WebBrowser& browser)
        : QWebEnginePage(&browser), folder_(folder), browser_(browser) {}

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool main_frame) override {
        const LinkTarget target = main_frame ? link_target(url, folder_) : LinkTarget::kShow;
        if (target == LinkTarget::kMissing) emit browser_.missingPage(url);
        if (target == LinkTarget::kOutside) emit browser_.outsideLink(url);
        return target == LinkTarget::kShow;
    }

  private:
    const QString& folder_;
    WebBrowser& browser_;
};

}  // namespace

WebBrowser::WebBrowser(QWidget* parent) : QWebEngineView(parent) {
    setObjectName("WebBrowser1"_L1);
    auto* back = new QShortcut(QKeySequence::Back, this);
    back->setContext(Qt::WidgetWithChildrenShortcut);
    connect(back, &QShortcut::activated, this, &QWebEngineView::back);
    setPage(new BrowsedPage(folder_, *this));
    connect(this, &QWebEngineView::urlChanged, this, [this] {
        const QString file = shown_file();
        if (!file.isEmpty()) emit pageShown(file);
    });
}

void WebBrowser::set_website_folder(const QString& folder) {
    folder_ = folder;
}

void WebBrowser::show_page(const QString& name) {
    setUrl(QUrl::fromLocalFile(QDir(folder_).filePath(name)));
}

void WebBrowser::show_nothing() {
    for (WebBrowser* popup : findChildren<WebBrowser*>()) popup->close();
    setUrl(QUrl(u"about:blank"_s));
}

QString WebBrowser::shown_file() const {
    if (!url().isLocalFile() || folder_.isEmpty()) return {};
    const QFileInfo file(url().toLocalFile());
    return QDir(file.absolutePath()) == QDir(folder_) ? file.fileName() : QString();
}

QWebEngineView* WebBrowser::createWindow(QWebEnginePage::WebWindowType) {
    auto* popup = new WebBrowser(this);
    popup->setWindowFlag(Qt::Window);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    popup->set_website_folder(folder_);
    popup->resize(640, 480);
    connect(popup, &WebBrowser::missingPage, this, &WebBrowser::missingPage);
    connect(popup, &WebBrowser::outsideLink, this, &WebBrowser::outsideLink);
    connect(popup, &WebBrowser::missingPage, popup, &QObject::deleteLater);
    connect(popup, &WebBrowser::outsideLink, popup, [popup] {
        if (!popup->isVisible()) popup->deleteLater();
    });
    connect(popup, &QWebEngineView::loadStarted, popup, &QWidget::show);
    connect(popup, &QWebEngineView::titleChanged, popup, &QWidget::setWindowTitle);
    connect(popup->page(), &QWebEnginePage::geometryChangeRequested, popup,
            [popup](const QRect& geometry) { popup->resize(geometry.size()); });
    connect(popup->page(), &QWebEnginePage::windowCloseRequested, popup, &QWidget::close);
    return popup;
}

void WebBrowser::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    for (const auto action : {QWebEnginePage::Back, QWebEnginePage::Forward, QWebEnginePage::Reload}) {
        menu.addAction(pageAction(action));
    }
    menu.exec(event->globalPos());
}

}  // namespace pondera
