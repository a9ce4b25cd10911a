#pragma once

#include <QByteArray>
#include <QString>

#include "base/file_error.h"

namespace pondera {

/// How a text file's bytes stand for its characters.
enum class TextEncoding { kUtf8, kUtf8WithBom, kUtf16Le, kUtf16Be, kWindows1252, kAscii };

/// A text file as read: its characters (line ends untouched, no byte order mark) and the encoding to write it back in.
struct TextFile {
    QString text;
    TextEncoding encoding = TextEncoding::kUtf8;
};

/// What a file's bytes say: a byte order mark decides, else valid UTF-8, else windows-1252 (whose five unassigned bytes
/// stand for the control characters of the same number, so that every byte comes back as it was).
[[nodiscard]] TextFile decode_text(const QByteArray& bytes);

/// The bytes of `text` in `encoding`; a character that the encoding lacks is written as a decimal character reference
/// ("&#8364;").
[[nodiscard]] QByteArray encode_text(const QString& text, TextEncoding encoding);

/// Reads a whole text file. Fails with 76 for a missing file or folder, 70 for one that may not be read.
[[nodiscard]] FileResult<TextFile> read_text_file(const QString& path);

/// Writes a whole text file atomically: afterwards the file holds either the old bytes or the new ones, never a part.
[[nodiscard]] FileResult<void> write_text_file(const QString& path, const QString& text, TextEncoding encoding);

/// Writes bytes as write_text_file does; a full disk is noticed even where the final rename would succeed.
[[nodiscard]] FileResult<void> write_file(const QString& path, const QByteArray& bytes);

/// Reads a whole file as bytes; errors as read_text_file.
[[nodiscard]] FileResult<QByteArray> read_file(const QString& path);

}  // namespace pondera
