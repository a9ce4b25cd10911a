#pragma once

#include <QDir>
#include <QHash>
#include <QString>

#include <optional>

namespace pondera {

/// The folder of a web page from outside, as far as the page may reach: the page comes from who knows where, so that
/// nothing above its folder, nothing hidden and nothing behind a link that leads out is there for it.
class ExternalFolder {
  public:
    explicit ExternalFolder(const QString& page_file);

    /// The file that an address leads to when it stands in the page (or in a file of `subfolder`), relative to this
    /// folder. Empty when there is none that the page may reach; nullopt when the address leads to the web, to a place
    /// on the page itself, or nowhere. Spellings of a web server or of a system that ignores case count as well.
    [[nodiscard]] std::optional<QString> file_at(const QString& address, const QString& subfolder = {}) const;

    /// True for a file in the folder that a browser saved together with the page ("Trips_files/x").
    [[nodiscard]] bool saved_with_page(const QString& file) const;

    [[nodiscard]] QString path(const QString& file) const { return folder_.filePath(file); }
    [[nodiscard]] const QString& page() const { return page_; }  ///< the page's own file

  private:
    [[nodiscard]] QString file_of_url(const QString& url) const;
    [[nodiscard]] QString reachable(const QString& relative) const;
    [[nodiscard]] QString real_spelling(const QString& relative) const;

    [[nodiscard]] QString entry(const QString& subfolder, const QString& name) const;

    QDir folder_;
    QString page_;
    mutable QHash<QString, QHash<QString, QString>> entries_;  // of a subfolder, by lower-case names
};

}  // namespace pondera
