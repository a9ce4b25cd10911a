#pragma once

#include <QDir>
#include <QWebEnginePage>

namespace pondera {

/// A page of the package. Links within the package are followed; web and mail addresses open in the person's own
/// programs, and nothing else of the machine is shown.
class PlayerPage : public QWebEnginePage {
    Q_OBJECT

  public:
    /// `package` is the folder that pages may come from.
    PlayerPage(QWebEngineProfile* profile, const QString& package, QObject* parent);

  signals:
    /// A link out of the package was not followed here.
    void LeftPackage();
    /// A page asks for a window of its own, which `page` is for.
    void WindowWanted(pondera::PlayerPage* page);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main_frame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;

  private:
    QString package_;
};

}  // namespace pondera
