#pragma once

#include <QString>
#include <QWebEngineUrlRequestInterceptor>

namespace pondera {

/// Whether a file, links on the way resolved, lies in `package`.
[[nodiscard]] bool lies_in_package(const QUrl& file, const QString& package);

/// Keeps the files of the person's machine from pages: what pages ask for is read from the package or from the web.
class PackageGuard : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

  public:
    PackageGuard(const QString& package, QObject* parent);

    void interceptRequest(QWebEngineUrlRequestInfo& request) override;

  private:
    QString package_;
};

}  // namespace pondera
