#pragma once

#include <QMainWindow>

class QWebEngineDownloadRequest;
class QWebEngineProfile;
class QWebEngineView;

namespace pondera {

class PlayerPage;

/// The window of a multimedia package: the Website's pages with back, forward, home, zoom and full screen. It keeps
/// nothing on disk, so that it works from a disc that cannot be written.
class PlayerWindow : public QMainWindow {
    Q_OBJECT

  public:
    /// Shows the home page at that path.
    explicit PlayerWindow(const QString& home_page);
    ~PlayerWindow() override;

  signals:
    /// The home page stands in the window.
    void Shown();
    /// It could not be shown.
    void Failed();

  private:
    /// A window for `page`, which a page of the first window or of another one like this has opened.
    PlayerWindow(PlayerPage* page, PlayerWindow& owner);

    void set_page(PlayerPage* page);
    void build_toolbar();
    void open_window(PlayerPage* page);
    void show_full_screen(bool on);
    void save_download(QWebEngineDownloadRequest& download);
    void zoom_by(double factor);

    QString home_page_;
    QWebEngineProfile* profile_ = nullptr;  ///< of the first window; others share it
    QWebEngineView* view_;
};

}  // namespace pondera
