#pragma once

#include <QString>
#include <QStringList>

#include "base/file_error.h"
#include "base/steps.h"

namespace pondera {

/// Deletes a Website: first the editing copy of its home page, from which moment its folder is no Website any more,
/// then its media folders and its own files with the folder. Links are deleted, not what they lead to. Fails when the
/// first step does; then nothing has been deleted. What cannot be deleted later, and folders that are not the
/// Website's, stay: their paths relative to the folder are the result (folders end in "/"), empty when all is gone.
[[nodiscard]] FileResult<QStringList> delete_website(const QString& website_folder, const Steps& steps = {});

}  // namespace pondera
