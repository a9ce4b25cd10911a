#pragma once

#include <QByteArray>
#include <QString>

#include "base/file_error.h"

namespace pondera {

/// The largest page file that the editing control takes, in bytes; pages that people write are a hundred times smaller.
inline constexpr qsizetype kLargestPage = 32LL * 1024 * 1024;

/// Why bytes cannot be edited as a page: too large, or no text at all (a NUL byte without a UTF-16 mark); kNone when
/// they can.
[[nodiscard]] FaultNumber fault_of_bytes(const QByteArray& bytes);

/// Why a page's text cannot be edited in place: it holds a frameset, or more than half of it is server script; kNone
/// when it can.
[[nodiscard]] FaultNumber fault_of_text(const QString& text);

}  // namespace pondera
