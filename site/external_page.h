#pragma once

#include <QStringList>

#include "base/file_error.h"

namespace pondera {

/// A web page from outside that is to become a page of a Website.
struct ExternalPage {
    QString file;
    QString website_folder;
    QString name;  ///< of the new page, allowed and free, without ending
};

/// What a web page became.
struct BroughtPage {
    QString page;           ///< published file name
    QStringList left_out;   ///< addresses of what it shows and could not be brought: missing, outside, too much
    QStringList own_links;  ///< its links to other pages and files on this computer, which stay as they are
};

/// A page name made of a file's name.
[[nodiscard]] QString external_page_name(const QString& file);

/// Brings a web page into a Website: the pictures, styles, scripts, films and sounds in its folder and below are
/// copied into the Website and its references lead to them, then its editing copy is written, in the encoding of the
/// page. What publishing would damage in its scripts and styles is kept in files of their own. Nothing but copied files
/// is left when it fails.
[[nodiscard]] FileResult<BroughtPage> bring_page_into_website(const ExternalPage& page);

}  // namespace pondera
