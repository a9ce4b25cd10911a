#pragma once

#include <QString>
#include <QStringView>

namespace pondera {

/// `text` with every occurrence of `find` replaced, found from left to right in one pass over the text.
[[nodiscard]] QString replace_all(const QString& text, const QString& find, const QString& with,
                                  Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

/// `text` without its blocks from `open` to the next `close`, both included (case ignored). A block that is not closed
/// stays.
[[nodiscard]] QString remove_blocks(const QString& text, const QString& open, const QString& close);

/// `text` without any of `characters`.
[[nodiscard]] QString without(const QString& text, QStringView characters);

}  // namespace pondera
