#pragma once

#include <QString>
#include <QStringList>

#include "base/file_error.h"
#include "base/steps.h"

namespace pondera {

/// Writes files into a new ZIP archive, under `top_folder` and their paths relative to `folder`, names in UTF-8. The
/// archive takes its name when it is whole: after a failure, or when `steps` stopped it (false), a file of that name is
/// as it was.
[[nodiscard]] FileResult<bool> write_zip(const QString& archive, const QString& top_folder, const QString& folder,
                                         const QStringList& files, const Steps& steps = {});

}  // namespace pondera
