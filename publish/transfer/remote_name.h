#pragma once

#include <QString>

namespace pondera {

/// Whether a text holds a character that could end a command on the control connection or hide in a message: those
/// below a blank, and DEL to U+009F.
[[nodiscard]] bool has_control_characters(const QString& text);

/// Whether `name`, as a server sent it, is the name of something in the listed folder and of nothing else, on any
/// system: not empty, no "/" or "\", not "." or "..", no drive letter, no control characters, at most 255 bytes.
[[nodiscard]] bool is_plain_name(const QString& name);

/// The absolute remote path that `name` means in `folder` (absolute). ".." climbs, at most to "/"; an absolute name
/// stands by itself.
[[nodiscard]] QString resolve_remote(const QString& folder, const QString& name);

/// The remote path under which a file is uploaded until it is whole: beside `path`, always the same for the same
/// path and machine, so that a second try replaces what a first one left.
[[nodiscard]] QString temporary_beside(const QString& path);

/// Whether a file name is one that `temporary_beside` makes.
[[nodiscard]] bool is_temporary_name(const QString& name);

}  // namespace pondera
