#include "base/files.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>

#include <cerrno>
#include <filesystem>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kCopyChunk = 1 << 20;

std::filesystem::path std_path(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

FileResult<void> result_of(const std::error_code& error, const QString& path) {
    if (error) return std::unexpected(file_error_of(error, path));
    return {};
}

FileResult<void> copy_bytes(QFile& from, QFileDevice& to) {
    to.setPermissions(from.permissions() | QFile::WriteOwner);
    while (!from.atEnd()) {
        const QByteArray chunk = from.read(kCopyChunk);
        if (from.error() != QFileDevice::NoError) return std::unexpected(file_error_of(from));
        if (auto written = write_whole(to, chunk); !written) return written;
    }
    return {};
}

}  // namespace

FileResult<void> write_whole(QFileDevice& file, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qint64 count = file.write(bytes.data(), bytes.size());
        if (count <= 0) return std::unexpected(file_error_of(file));
        bytes = bytes.sliced(count);
    }
    if (!file.flush()) return std::unexpected(file_error_of(file));
    return {};
}

FileResult<void> write_through(QFileDevice& file) {
#ifdef Q_OS_WIN
    const int failed = _commit(file.handle());
#else
    const int failed = fdatasync(file.handle());
#endif
    if (failed == 0) return {};
    return std::unexpected(file_error_of(std::error_code(errno, std::generic_category()), file.fileName()));
}

FileResult<void> copy_file(const QString& source, const QString& target, IfExists if_exists) {
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly)) return std::unexpected(file_error_of(from));
    if (if_exists == IfExists::kFail && QFileInfo::exists(target))
        return std::unexpected(file_error_of(std::make_error_code(std::errc::file_exists), target));
    QSaveFile to(target);
    if (!to.open(QIODevice::WriteOnly)) return std::unexpected(file_error_of(to));
    if (auto copied = copy_bytes(from, to); !copied) return copied;
    if (!to.commit()) return std::unexpected(file_error_of(to));
    return {};
}

FileResult<void> copy_new_file(const QString& source, const QString& target) {
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly)) return std::unexpected(file_error_of(from));
    QFile to(target);
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return std::unexpected(file_error_of(to));
    auto copied = copy_bytes(from, to);
    if (!copied) to.remove();
    return copied;
}

FileResult<void> replace_file(const QString& path, QByteArrayView bytes) {
    const QFileInfo info(path);
    const QFile::Permissions permissions = info.permissions();
    if (!info.exists()) return result_of(std::make_error_code(std::errc::no_such_file_or_directory), path);
    if (!info.isFile() || !permissions.testFlag(QFile::WriteOwner))
        return result_of(std::make_error_code(std::errc::permission_denied), path);
    // One name for all: what a crash left behind is used again.
    QFile file(info.dir().filePath(u".pondera-replacement.tmp"_s));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return std::unexpected(file_error_of(file));
    const bool whole = file.write(bytes.data(), bytes.size()) == bytes.size();
    if (!whole || (file.permissions() != permissions && !file.setPermissions(permissions))) {
        auto error = file_error_of(file);
        file.remove();
        return std::unexpected(error);
    }
    file.close();
    std::error_code error;
    std::filesystem::rename(std_path(file.fileName()), std_path(path), error);
    if (error) file.remove();
    return result_of(error, path);
}

FileResult<void> write_private_file(const QString& path, QByteArrayView bytes) {
    // A temporary file is its owner's alone from the moment it is made.
    QTemporaryFile file(QFileInfo(path).dir().filePath(u".pondera-XXXXXX.tmp"_s));
    if (!file.open()) {
        FileError error = file_error_of(file);
        error.path = QDir::toNativeSeparators(path);
        return std::unexpected(error);
    }
    if (auto written = write_whole(file, bytes); !written) return written;
    file.close();
    std::error_code error;
    std::filesystem::rename(std_path(file.fileName()), std_path(path), error);
    file.setAutoRemove(static_cast<bool>(error));
    return result_of(error, path);
}

FileResult<void> remove_file(const QString& path) {
    std::error_code error;
    if (!std::filesystem::remove(std_path(path), error) && !error)
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    return result_of(error, path);
}

FileResult<void> create_folder(const QString& path) {
    std::error_code error;
    if (!std::filesystem::create_directory(std_path(path), error) && !error)
        error = std::make_error_code(std::errc::file_exists);
    return result_of(error, path);
}

FileResult<void> create_folders(const QString& path) {
    std::error_code error;
    std::filesystem::create_directories(std_path(path), error);
    return result_of(error, path);
}

}  // namespace pondera
