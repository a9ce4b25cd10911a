#pragma once

#include <QString>
#include <QStringView>

namespace pondera {

/// `markup` with its character references as the characters that they stand for: decimal and hexadecimal ones, and by
/// name those of Latin-1 and of markup itself ("&amp;", "&eacute;"). Names count with their semicolon only, so that a
/// query such as "?a=1&copy=2" stays.
[[nodiscard]] QString resolve_character_references(QStringView markup);

}  // namespace pondera
