#pragma once

#include <QFile>
#include <QSaveFile>
#include <QString>

#include <filesystem>

#include "base/file_error.h"

namespace pondera {

/// A local file on its way to the server. What is sent is the file as it was when it was opened, or nothing.
class OutgoingFile {
  public:
    explicit OutgoingFile(const QString& path);

    /// Opens the file, or begins again with its first byte.
    [[nodiscard]] FileResult<void> open();
    [[nodiscard]] qint64 size() const { return size_; }
    /// The next bytes; -1 when the file is not any longer the one that was opened. Once the last byte has been given,
    /// all are of one version.
    qint64 read(char* bytes, qint64 room);

  private:
    [[nodiscard]] bool unchanged() const;

    QFile file_;
    qint64 size_ = 0;
    std::filesystem::file_time_type time_;
};

/// A local file on its way from the server. It stands at its place only when it is whole.
class IncomingFile {
  public:
    static constexpr qint64 kLargest = qint64(1) << 30;

    explicit IncomingFile(const QString& path) : file_(path) {}

    [[nodiscard]] FileResult<void> open();
    [[nodiscard]] bool write(const char* bytes, qint64 count);
    [[nodiscard]] FileResult<void> finish();
    [[nodiscard]] FileError error() const { return file_error_of(file_); }
    /// Whether it has become larger than `kLargest`; nothing more is written then.
    [[nodiscard]] bool too_large() const { return too_large_; }

  private:
    QSaveFile file_;
    bool too_large_ = false;
};

/// The local path that `name` means, which may be relative to `root`; nothing when it leads out of `root`, by ".." or
/// by a link, or when `root` is empty.
[[nodiscard]] QString inside_root(const QString& root, const QString& name);

}  // namespace pondera
