#include "publish/transfer/local_file.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pondera {

OutgoingFile::OutgoingFile(const QString& path) : file_(path) {
}

FileResult<void> OutgoingFile::open() {
    file_.close();
    const QFileInfo info(file_.fileName());
    if (!info.exists())
        return std::unexpected(FileError{.number = FaultNumber::kFileNotFound, .path = file_.fileName(), .reason = {}});
    if (!info.isFile() || !file_.open(QIODevice::ReadOnly)) return std::unexpected(file_error_of(file_));
    size_ = file_.size();
    std::error_code error;
    time_ = std::filesystem::last_write_time(QFileInfo(file_).filesystemFilePath(), error);
    return {};
}

qint64 OutgoingFile::read(char* bytes, qint64 room) {
    const qint64 count = file_.read(bytes, std::min(room, size_ - file_.pos()));
    const bool at_end = file_.pos() == size_;
    if (count < 0 || (count == 0 && !at_end) || (at_end && !unchanged())) return -1;
    return count;
}

bool OutgoingFile::unchanged() const {
    std::error_code error;
    const std::filesystem::path path = QFileInfo(file_).filesystemFilePath();
    return std::filesystem::last_write_time(path, error) == time_ && file_.size() == size_;
}

FileResult<void> IncomingFile::open() {
    if (!file_.open(QIODevice::WriteOnly)) return std::unexpected(error());
    return {};
}

bool IncomingFile::write(const char* bytes, qint64 count) {
    too_large_ = too_large_ || count > kLargest - file_.pos();
    return !too_large_ && file_.write(bytes, count) == count;
}

FileResult<void> IncomingFile::finish() {
    if (!file_.commit()) return std::unexpected(error());
    return {};
}

QString inside_root(const QString& root, const QString& name) {
    const QString real_root = root.isEmpty() ? QString() : QFileInfo(root).canonicalFilePath();
    if (real_root.isEmpty() || name.isEmpty()) return {};
    const QFileInfo target(QDir::cleanPath(QDir(root).absoluteFilePath(name)));
    const QString folder = QFileInfo(target.path()).canonicalFilePath();
    const bool inside = folder == real_root || folder.startsWith(real_root + u'/');
    return inside && !target.isSymLink() && !target.isDir() ? target.filePath() : QString();
}

}  // namespace pondera
