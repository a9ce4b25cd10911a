#pragma once

#include <QByteArrayView>
#include <QString>

#include "base/file_error.h"

class QFileDevice;

namespace pondera {

/// Hands all of `bytes` to the system, so that a disk that is full by then is noticed before the file takes its
/// name: QSaveFile by itself accepts a short write.
[[nodiscard]] FileResult<void> write_whole(QFileDevice& file, QByteArrayView bytes);

/// Waits until the disk has what was written to a file.
[[nodiscard]] FileResult<void> write_through(QFileDevice& file);

enum class IfExists { kFail, kReplace };

/// Copies a file's bytes and permissions (its owner may always write to the copy). `target` holds either all of them
/// afterwards or what it held before; fails with 58 when it exists and is not to be replaced.
[[nodiscard]] FileResult<void> copy_file(const QString& source, const QString& target, IfExists if_exists);

/// Copies a file as copy_file does to a name that is free, without waiting for the disk. For folders that count only
/// when they are whole: after a failure the copy is gone again, but a power cut may leave it short.
[[nodiscard]] FileResult<void> copy_new_file(const QString& source, const QString& target);

/// Gives a file that is there other bytes, its permissions kept. For work on thousands of files: whatever becomes of
/// the program, the file holds all of the old bytes or all of the new ones, but nothing waits for the disk, as
/// write_file does (a loss of power in the seconds after it may leave an empty file). Fails with 70 for a file that its
/// owner may not write, whoever asks.
[[nodiscard]] FileResult<void> replace_file(const QString& path, QByteArrayView bytes);

/// Writes a file that holds secrets: from its first byte on only its owner may read it, also where it replaces one that
/// others could read. Afterwards it holds all of the old bytes or all of the new ones.
[[nodiscard]] FileResult<void> write_private_file(const QString& path, QByteArrayView bytes);

/// Deletes one file; a file that is not there is 76.
[[nodiscard]] FileResult<void> remove_file(const QString& path);

/// Creates one folder in a folder that is there; fails with 58 when something of that name exists.
[[nodiscard]] FileResult<void> create_folder(const QString& path);

/// Creates a folder and those above it, as far as they are missing.
[[nodiscard]] FileResult<void> create_folders(const QString& path);

}  // namespace pondera
