#pragma once

#include <QFileDevice>
#include <QString>

#include <cstdint>
#include <expected>
#include <system_error>

namespace pondera {

/// The numbers by which file faults are told apart and their messages are keyed.
enum class FaultNumber : std::uint32_t {
    kNone = 0,
    kInvalidCall = 5,
    kTypeMismatch = 13,
    kAlreadyExists = 58,
    kDiskFull = 61,
    kPermissionDenied = 70,
    kPathNotFound = 76,
    kUnexpected = 0x8000FFFF,
    kFileNotFound = 0x80070002,
    kInvalidPath = 0x80070003,
    kWriteDiskFull = 0x80070027,
    kFrameset = 0x80100001,
    kServerScript = 0x80100002,
    kTooLarge = 0x80100003,
    kBinary = 0x80100004,
};

/// A file operation that failed: the number that its message is keyed by, the path it failed on (native spelling) and,
/// for the log and for "any other" messages, the system's own words.
struct FileError {
    FaultNumber number = FaultNumber::kUnexpected;
    QString path;
    QString reason;

    friend bool operator==(const FileError&, const FileError&) = default;
};

template <typename T>
using FileResult = std::expected<T, FileError>;

/// The fault's number as the messages show it, in decimal.
[[nodiscard]] QString number_text(FaultNumber number);

/// What went wrong, in a few words: "no permission".
[[nodiscard]] QString fault_words(const FileError& error);

/// A sentence that tells a person what went wrong and where: "The disk is full.", "No permission for PATH."
[[nodiscard]] QString fault_sentence(const FileError& error);

/// The fault that an errno value stands for: EACCES, EPERM, EROFS and EISDIR are 70; ENOENT and ENOTDIR 76; EEXIST 58;
/// ENOSPC and EDQUOT 61; EINVAL and ENAMETOOLONG 5; all others "unexpected".
[[nodiscard]] FaultNumber fault_of_errno(int error);

/// The error of a QFile or QSaveFile that has just failed, taken from its errno-based state.
[[nodiscard]] FileError file_error_of(const QFileDevice& file);

/// The error of a std::filesystem operation on `path`.
[[nodiscard]] FileError file_error_of(const std::error_code& error, const QString& path);

}  // namespace pondera
