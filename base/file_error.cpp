#include "base/file_error.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <cerrno>

namespace pondera {

using namespace Qt::StringLiterals;

QString number_text(FaultNumber number) {
    return QString::number(static_cast<std::uint32_t>(number));
}

QString fault_words(const FileError& error) {
    switch (error.number) {
        case FaultNumber::kDiskFull:
        case FaultNumber::kWriteDiskFull:
            return u"the disk is full"_s;
        case FaultNumber::kPermissionDenied:
            return u"no permission"_s;
        case FaultNumber::kPathNotFound:
            return u"does not exist"_s;
        case FaultNumber::kAlreadyExists:
            return u"exists already"_s;
        default:
            return error.reason.isEmpty() ? number_text(error.number) : error.reason;
    }
}

QString fault_sentence(const FileError& error) {
    switch (error.number) {
        case FaultNumber::kDiskFull:
        case FaultNumber::kWriteDiskFull:
            return u"The disk is full."_s;
        case FaultNumber::kPermissionDenied:
            return u"No permission for %1."_s.arg(error.path);
        case FaultNumber::kPathNotFound:
            return u"%1 does not exist."_s.arg(error.path);
        case FaultNumber::kAlreadyExists:
            return u"%1 exists already."_s.arg(error.path);
        default:
            return u"%1 (%2)"_s.arg(error.path, fault_words(error));
    }
}

FaultNumber fault_of_errno(int error) {
    switch (error) {
        case 0:
            return FaultNumber::kNone;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return FaultNumber::kPermissionDenied;
        case ENOENT:
        case ENOTDIR:
            return FaultNumber::kPathNotFound;
        case EEXIST:
            return FaultNumber::kAlreadyExists;
        case ENOSPC:
        case EDQUOT:
            return FaultNumber::kDiskFull;
        case EINVAL:
        case ENAMETOOLONG:
            return FaultNumber::kInvalidCall;
        default:
            return FaultNumber::kUnexpected;
    }
}

FileError file_error_of(const QFileDevice& file) {
    // A QFileDevice keeps the system's words but not its number, and errno itself may have moved on since.
    static constexpr std::array kKnown{EACCES, EPERM,  EROFS,  EISDIR, ENOENT,      ENOTDIR,
                                       EEXIST, ENOSPC, EDQUOT, EINVAL, ENAMETOOLONG};
    const QString reason = file.errorString();
    const QFileInfo info(file.fileName());
    // QSaveFile finds out by itself that a file is write-protected, and says so in its own words.
    const bool is_protected = file.error() == QFileDevice::WriteError && info.exists() && !info.isWritable();
    FaultNumber number = FaultNumber::kUnexpected;
    const auto* known = std::ranges::find_if(kKnown, [&](int error) { return qt_error_string(error) == reason; });
    if (known != kKnown.end())
        number = fault_of_errno(*known);
    else if (file.error() == QFileDevice::PermissionsError || info.isDir() || is_protected)
        number = FaultNumber::kPermissionDenied;
    return {number, QDir::toNativeSeparators(file.fileName()), reason};
}

FileError file_error_of(const std::error_code& error, const QString& path) {
    return {fault_of_errno(error.default_error_condition().value()), QDir::toNativeSeparators(path),
            QString::fromStdString(error.message())};
}

}  // namespace pondera
