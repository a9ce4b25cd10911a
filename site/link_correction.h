#pragma once

#include <QList>
#include <QString>

#include "base/file_error.h"
#include "base/steps.h"
#include "site/page_group.h"

namespace pondera {

/// What a correction of links did. A file that could not be read or written keeps its links, the others are done.
struct CorrectedLinks {
    int files = 0;              ///< files that were changed
    QList<FileError> failures;  ///< files that should have been and could not
};

/// A page's text with every link to a moved page leading to its new name; editing marks, folders, anchors and queries
/// stay as they are written. The moves count as made at the same time. What is no link stays, and so does a link to a
/// name that contains a moved one.
[[nodiscard]] QString with_corrected_links(const QString& page_text, const QList<PageMove>& moves,
                                           const QString& website);

/// Corrects the links to moved pages in all of a Website: in its pages and editing copies (not in its card templates),
/// and in the scripts and settings files of "media/img" (menus and the like). Each file is replaced as a whole or not
/// at all (see BulkReplacement), and keeps its encoding and permissions. A link that differs from a moved name in case
/// only is corrected too, unless a file has exactly its name. The work is not stopped half-way, whatever `steps`
/// answers.
[[nodiscard]] CorrectedLinks Correzione_Links(const QString& website_folder, const QList<PageMove>& moves,
                                              const Steps& steps = {});

}  // namespace pondera
