#include "player/window/player_page.h"

#include <QDesktopServices>
#include <QWebEngineSettings>

#include "player/window/package_guard.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool is_for_other_programs(const QUrl& url) {
    static const QStringList kSchemes{u"http"_s, u"https"_s, u"mailto"_s, u"tel"_s};
    return kSchemes.contains(url.scheme());
}

}  // namespace

PlayerPage::PlayerPage(QWebEngineProfile* profile, const QString& package, QObject* parent)
    : QWebEnginePage(profile, parent), package_(package) {
    // Pictures and scripts of the package, and of the web; PackageGuard keeps all other files away.
    settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    settings()->setAttribute(QWebEngineSettings::PluginsEnabled, true);
    settings()->setAttribute(QWebEngineSettings::FullScreenSupportEnabled, true);
    settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, false);
    settings()->setFontFamily(QWebEngineSettings::StandardFont, u"Times New Roman"_s);
}

bool PlayerPage::acceptNavigationRequest(const QUrl& url, NavigationType, bool is_main_frame) {
    if (url.isLocalFile()) {
        if (lies_in_package(url, package_)) return true;
    } else if (!is_for_other_programs(url) || !is_main_frame) {
        return true;
    } else {
        QDesktopServices::openUrl(url);
    }
    emit LeftPackage();
    return false;
}

QWebEnginePage* PlayerPage::createWindow(WebWindowType) {
    auto* page = new PlayerPage(profile(), package_, nullptr);
    emit WindowWanted(page);
    return page;
}

}  // namespace pondera
