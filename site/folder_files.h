#pragma once

#include <QStringList>

#include "base/file_error.h"
#include "base/steps.h"

namespace pondera {

enum class Extent {
    kWebsite,         ///< the folder's own files and those of its media folders
    kWithAllFolders,  ///< those of all other sub-folders as well
};

/// The files of a folder, as paths relative to it with "/" between folders.
struct FolderFiles {
    QStringList files;
    QStringList left_out;  ///< what is not followed or not copied; folders end in "/"
};

/// The files of a Website's folder in a fixed order. Links are files when they lead to a file within the folder;
/// links that lead elsewhere or to folders, what is neither file nor folder, and folders beyond the extent are left
/// out. Fails with the first folder that cannot be read.
[[nodiscard]] FileResult<FolderFiles> files_of_website(const QString& folder, Extent extent);

enum class Work { kDone, kCancelled };

/// Copies files from one folder to the same places of another, whose folders are made as far as they are missing. A
/// file that is there is replaced whole. Ends with the first that fails.
[[nodiscard]] FileResult<Work> copy_files(const QString& from, const QString& to, const QStringList& files,
                                          const Steps& steps = {});

}  // namespace pondera
