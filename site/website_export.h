#pragma once

#include <QString>

#include <expected>

#include "base/file_error.h"
#include "base/steps.h"
#include "site/folder_files.h"

namespace pondera {

class Roots;

enum class ExportForm { kFolder, kZip };

/// Where the published files of a Website go.
struct WebsiteExport {
    QString website;
    ExportForm form = ExportForm::kFolder;
    QString place;  ///< the folder that gets the files, or the ZIP file
};

/// The export of a Website as the person asked for it: into the folder `chosen` it goes as a sub-folder of the
/// Website's name; a ZIP file's name gets its ending when it has none. The message why not, when no such place exists
/// or it lies among the Websites, where it could write over them.
[[nodiscard]] std::expected<WebsiteExport, QString> plan_export(const Roots& roots, const QString& website,
                                                                ExportForm form, const QString& chosen);

/// What has to be asked before an export goes on, since files are there; empty when there is nothing to ask.
[[nodiscard]] QString question_of_export(const WebsiteExport& plan);

/// Writes the published files of a Website. A ZIP file takes its name when it is whole; a folder that is new goes again
/// after a failure and when it was cancelled. In a folder that was there files of the same names are replaced and all
/// others stay.
[[nodiscard]] FileResult<Work> export_website(const Roots& roots, const WebsiteExport& plan, const Steps& steps = {});

}  // namespace pondera
