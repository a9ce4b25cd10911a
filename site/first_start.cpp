#include "site/first_start.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>

#include <map>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Checksums by the path relative to the base folder.
using Checksums = std::map<QString, QString>;

QString record_path(const Roots& roots) {
    return QDir(roots.base_folder()).filePath(u"shipped_files.txt"_s);
}

Checksums read_record(const Roots& roots) {
    Checksums record;
    const auto file = read_text_file(record_path(roots));
    if (!file) return record;
    for (const QString& line : file->text.split(u'\n', Qt::SkipEmptyParts))
        record[line.section(u' ', 1)] = line.section(u' ', 0, 0);
    return record;
}

FileResult<void> write_record(const Roots& roots, const Checksums& record) {
    QString text;
    for (const auto& [path, checksum] : record) text += checksum + u' ' + path + u'\n';
    return write_text_file(record_path(roots), text, TextEncoding::kUtf8);
}

FileResult<QString> checksum_of(const QString& path) {
    const auto bytes = read_file(path);
    if (!bytes) return std::unexpected(bytes.error());
    return QString::fromLatin1(QCryptographicHash::hash(*bytes, QCryptographicHash::Sha256).toHex());
}

/// Brings one shipped file to its place, unless the user's own stands there.
FileResult<void> install(const QString& source, const QString& target, QString& recorded) {
    const auto shipped = checksum_of(source);
    if (!shipped) return std::unexpected(shipped.error());
    const bool present = QFileInfo::exists(target);
    if (present) {
        const auto current = checksum_of(target);
        if (!current) return std::unexpected(current.error());
        if (*current == *shipped) recorded = *shipped;
        if (*current != recorded || *shipped == recorded) return {};
    } else if (auto made = create_folders(QFileInfo(target).path()); !made) {
        return made;
    }
    auto copied = copy_file(source, target, present ? IfExists::kReplace : IfExists::kFail);
    if (copied) recorded = *shipped;
    return copied;
}

}  // namespace

FileResult<void> install_shipped_files(const QString& shipped, const Roots& roots) {
    if (!QFileInfo(shipped).isDir()) return std::unexpected(FileError{FaultNumber::kPathNotFound, shipped, {}});
    const QDir from(shipped);
    const QDir to(roots.base_folder());
    const Checksums before = read_record(roots);
    Checksums record = before;
    FileResult<void> result = create_folders(roots.websites());
    for (QDirIterator files(shipped, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
        const QString name = from.relativeFilePath(files.next());
        auto installed = install(files.filePath(), to.filePath(name), record[name]);
        if (!installed && result) result = std::move(installed);
    }
    std::erase_if(record, [](const auto& entry) { return entry.second.isEmpty(); });
    if (record == before) return result;
    if (auto written = write_record(roots, record); !written && result) return written;
    return result;
}

}  // namespace pondera
