#include "base/bulk_replacement.h"

#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <tuple>

#include "base/files.h"
#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kBackupName = u".pondera-backup.tmp"_s;
constexpr QByteArrayView kMagic("pondera backup");

/// A backup's text: a line that tells the file, its number and size, then the bytes, then the number again. The file is
/// overwritten from its beginning each time, so a record counts only when the same number stands at both ends.
QByteArray record_of(const QString& name, int number, const QByteArray& bytes) {
    return kMagic.toByteArray() + '|' + QByteArray::number(number) + '|' + QByteArray::number(bytes.size()) + '|' +
           name.toUtf8() + '\n' + bytes + QByteArray::number(number) + '\n';
}

bool write_over(QFile& file, const QByteArray& bytes) {
    return file.seek(0) && file.write(bytes) == bytes.size();
}

}  // namespace

BulkReplacement::BulkReplacement(const QString& folder) : backup_(QDir(folder).filePath(kBackupName)) {
    undo_interrupted_replacement(folder);
}

BulkReplacement::~BulkReplacement() {
    if (backup_.isOpen()) backup_.remove();
}

FileResult<void> BulkReplacement::replace(const QString& path, const QByteArray& old_bytes, const QByteArray& bytes) {
    QFile file(path);
    std::error_code unknown;
    const auto status = std::filesystem::status(QFileInfo(path).filesystemFilePath(), unknown);
    if ((status.permissions() & std::filesystem::perms::owner_write) == std::filesystem::perms::none)
        return std::unexpected(file_error_of(std::make_error_code(std::errc::permission_denied), path));
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return std::unexpected(file_error_of(file));
    if (auto backed_up = back_up(path, old_bytes); !backed_up) return backed_up;
    const bool whole = write_over(file, bytes) && (bytes.size() >= old_bytes.size() || file.resize(bytes.size()));
    if (whole) return {};
    FileError error = file_error_of(file);
    (void)(write_over(file, old_bytes) && file.resize(old_bytes.size()));
    return std::unexpected(error);
}

FileResult<void> BulkReplacement::back_up(const QString& path, const QByteArray& bytes) {
    if (!backup_.isOpen() && !backup_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return std::unexpected(file_error_of(backup_));
    const QString name = QFileInfo(backup_).dir().relativeFilePath(path);
    if (!write_over(backup_, record_of(name, ++number_, bytes))) return std::unexpected(file_error_of(backup_));
    return {};
}

void undo_interrupted_replacement(const QString& folder) {
    const QString backup = QDir(folder).filePath(kBackupName);
    const auto record = read_file(backup);
    if (!record) return;
    const qsizetype line_end = record->indexOf('\n');
    const QByteArrayList line = record->first(std::max<qsizetype>(line_end, 0)).split('|');
    if (line.size() == 4 && line[0] == kMagic) {
        const QByteArray bytes =
            record->sliced(line_end + 1, std::min(line[2].toLongLong(), record->size() - line_end - 1));
        const QString path = QDir::cleanPath(QDir(folder).filePath(QString::fromUtf8(line[3])));
        const bool whole = record->startsWith(record_of(QString::fromUtf8(line[3]), line[1].toInt(), bytes));
        if (whole && path.startsWith(QDir::cleanPath(folder) + u'/') && QFileInfo(path).isFile())
            std::ignore = replace_file(path, bytes);
    }
    QFile::remove(backup);
}

}  // namespace pondera
