#pragma once

#include <QList>
#include <QString>

#include "base/file_error.h"

namespace pondera {

enum class PackagePart { kPackage, kInstaller };

/// A file that a multimedia package has beside the Website.
struct SupportFile {
    QString source;                            ///< below the tools folder
    PackagePart part = PackagePart::kPackage;  ///< the folder that it goes into
    QString target;                            ///< its name there

    /// The file's name as messages tell it.
    [[nodiscard]] QString name() const;
};

/// The support files of a Website's package in the order in which they are copied: those of the installer folder first.
[[nodiscard]] QList<SupportFile> support_files(const QString& website);

/// Copies a support file over what is there. The file that tells a system what to start from a disc and the page that
/// leads to the home page get the Website's name where they hold "%NAME%", that page also its address for "%ADDRESS%".
[[nodiscard]] FileResult<void> copy_support_file(const SupportFile& file, const QString& tools_folder,
                                                 const QString& folder, const QString& website);

}  // namespace pondera
