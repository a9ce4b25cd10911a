#pragma once

#include <QByteArrayView>
#include <QString>

#include "base/file_error.h"

class QSaveFile;

namespace pondera {

/// Hands all of `bytes` to the system, so that a disk that is full by then is noticed before the file takes its
/// name: QSaveFile by itself accepts a short write.
[[nodiscard]] FileResult<void> write_whole(QSaveFile& file, QByteArrayView bytes);

enum class IfExists { kFail, kReplace };

/// Copies a file's bytes and permissions (its owner may always write to the copy). `target` holds either all of them
/// afterwards or what it held before; fails with 58 when it exists and is not to be replaced.
[[nodiscard]] FileResult<void> copy_file(const QString& source, const QString& target, IfExists if_exists);

/// Deletes one file; a file that is not there is 76.
[[nodiscard]] FileResult<void> remove_file(const QString& path);

/// Creates one folder in a folder that is there; fails with 58 when something of that name exists.
[[nodiscard]] FileResult<void> create_folder(const QString& path);

/// Creates a folder and those above it, as far as they are missing.
[[nodiscard]] FileResult<void> create_folders(const QString& path);

}  // namespace pondera
