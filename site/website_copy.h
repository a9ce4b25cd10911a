#pragma once

#include <QString>
#include <QStringList>

#include "base/file_error.h"
#include "base/steps.h"

namespace pondera {

class Roots;

/// A Website that is saved under another name.
struct WebsiteCopy {
    QString from;
    QString to;  ///< not in use
};

/// What a saving under another name did.
struct CopiedWebsite {
    bool cancelled = false;
    QStringList left_out{};  ///< as FolderFiles has it, without the publishing record
};

/// The text of a page, script or settings file as it stands in the copy: addresses that name the old Website's folder
/// ("../OLD/x", or below the Websites root) name the new one. Pages get its titles: the template's title (but not in
/// templates), and in the home page "index" and the old Website's.
[[nodiscard]] QString text_of_copy(const QString& file_name, const QString& text, const WebsiteCopy& copy,
                                   const Roots& roots);

/// Saves a Website under another name with all its files, those in folders of the person's own too. What tells about
/// publications of the old one stays behind. Fails with 58 when the name is in use; after a failure, and when it was
/// cancelled, nothing remains.
[[nodiscard]] FileResult<CopiedWebsite> copy_website(const Roots& roots, const WebsiteCopy& copy,
                                                     const Steps& steps = {});

}  // namespace pondera
