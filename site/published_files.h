#pragma once

#include <QString>
#include <QStringList>

#include "base/file_error.h"

namespace pondera {

/// True for a file that visitors get: its name holds no editing mark, it is no template and nothing that other programs
/// leave behind. The blank page counts, as links lead to it.
[[nodiscard]] bool is_published(const QString& file_name);

/// The files of a Website that visitors get, as paths relative to its folder with "/" between folders: those beside the
/// pages, then those of its media folders. Fails with the first folder that cannot be read.
[[nodiscard]] FileResult<QStringList> published_files(const QString& website_folder);

/// The pages of a Website that have an editing copy but no published page yet, by their published names.
[[nodiscard]] QStringList unpublished_pages(const QString& website_folder);

}  // namespace pondera
