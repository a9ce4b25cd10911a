#pragma once

#include <QList>
#include <QString>

#include "base/steps.h"
#include "site/page_references.h"

namespace pondera {

/// An address that leads nowhere.
struct BrokenLink {
    QString file;  ///< the page's published file name, or the path of a script in the Website
    ReferenceKind kind = ReferenceKind::kLink;
    QString address;  ///< what the page says, its character references resolved; empty for a page not read
    int number = 0;   ///< among equal addresses of that file, from 0
    QString reason;   ///< for the person
};

/// What a check of a Website's links found.
struct LinkCheck {
    QList<BrokenLink> broken;  ///< page by page, in their order on each
    int pages = 0;             ///< that were read
    int addresses = 0;         ///< of the Website that were followed
    bool whole = true;         ///< false when the check was stopped
};

/// Follows every address of a Website's pages (their editing copies where they have one) and of its generated menu
/// scripts: links, pictures, media, style sheets and scripts. Broken is what leads to a file or anchor that is not
/// there, to one whose name differs in case, out of the Website, or to a page that was never saved. Web addresses are
/// not tried. A page that cannot be read is among the broken ones, without an address.
[[nodiscard]] LinkCheck broken_links(const QString& website_folder, const Steps& steps = {});

}  // namespace pondera
