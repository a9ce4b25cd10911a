#pragma once

#include <QString>

#include "publish/sending/folder_publication.h"

namespace pondera {

/// What a publication to a folder came to, in a sentence or two for the person.
[[nodiscard]] QString folder_summary(const FolderPublication& publication);

/// The files that the folder's drive refused, each with the reason, a line each; at most ten of them.
[[nodiscard]] QString refused_files(const FolderPublication& publication);

/// The question that has to be answered before a Website is published for the first time to a folder that holds files
/// in its place already; empty when there is nothing to ask.
[[nodiscard]] QString question_of_folder(const Roots& roots, const QString& website, const QString& folder);

}  // namespace pondera
