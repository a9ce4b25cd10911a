#pragma once

#include <QString>
#include <QStringList>

#include <optional>

#include "base/file_error.h"
#include "base/steps.h"

namespace pondera {

class Roots;

/// A folder that is to become a Website of this person.
struct WebsiteImport {
    QString folder;         ///< absolute
    QString name{};         ///< under which it will be found
    bool replaces = false;  ///< a Website of that name is there
};

/// The names of the sub-folders of `folder` that are Websites, in alphabetical order; folders that lie beside Websites
/// are none.
[[nodiscard]] QStringList websites_in_folder(const QString& folder);

/// How a folder would be imported, or the message why it cannot be: it is no Website, its name is one of the folders
/// beside the Websites or cannot be shown, it is that Website already or lies in it, or something else has its name.
/// The Website that is there keeps its spelling when the names differ in case only.
[[nodiscard]] std::expected<WebsiteImport, QString> plan_import(const Roots& roots, const QString& folder);

/// What an import did.
struct ImportedWebsite {
    bool cancelled = false;
    QStringList left_out{};  ///< as FolderFiles has it
};

/// Copies the files of a Website's folder and its media folders under the Websites root. A Website that is replaced
/// stays whole until the new one is; after a failure, and when it was cancelled, everything is as before.
[[nodiscard]] FileResult<ImportedWebsite> import_website(const Roots& roots, const WebsiteImport& import,
                                                         const Steps& steps = {});

}  // namespace pondera
