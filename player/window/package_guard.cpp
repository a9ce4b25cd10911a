#include "player/window/package_guard.h"

#include <QFileInfo>

namespace pondera {

bool lies_in_package(const QUrl& file, const QString& package) {
    const QString path = QFileInfo(file.toLocalFile()).canonicalFilePath();
    return path.startsWith(QFileInfo(package).canonicalFilePath() + u'/');
}

PackageGuard::PackageGuard(const QString& package, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent), package_(package) {
}

void PackageGuard::interceptRequest(QWebEngineUrlRequestInfo& request) {
    const QUrl url = request.requestUrl();
    if (url.isLocalFile() && !lies_in_package(url, package_)) request.block(true);
}

}  // namespace pondera
