#pragma once

#include <QWebEngineView>

namespace pondera {

/// `WebBrowser1`: shows a page of the Website as a visitor sees it, with its scripts running. Links inside the Website
/// are followed; other addresses and documents are handed out, and what the visitor would not find is reported.
class WebBrowser : public QWebEngineView {
    Q_OBJECT

  public:
    explicit WebBrowser(QWidget* parent);

    /// The folder outside of which nothing on this computer is shown.
    void set_website_folder(const QString& folder);

    /// Shows the file `name` of the Website.
    void show_page(const QString& name);

    /// Shows nothing, so that sounds and videos of the page end.
    void show_nothing();

    /// The name of the Website's file that is shown, as in its folder (an editing mark is kept); empty when it shows
    /// none.
    [[nodiscard]] QString shown_file() const;

  signals:
    void pageShown(const QString& file_name);  ///< a file of the Website is shown now
    void missingPage(const QUrl& address);     ///< a link led to a file that is not in the Website
    void outsideLink(const QUrl& address);     ///< a link leads to another site or to a document

  protected:
    QWebEngineView* createWindow(QWebEnginePage::WebWindowType type) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QString folder_;
};

}  // namespace pondera
