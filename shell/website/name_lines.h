#pragma once

#include <QString>
#include <QStringList>

namespace pondera {

/// Names for a message, one a line; of more than ten the first ten and how many more there are.
[[nodiscard]] inline QString name_lines(const QStringList& names) {
    constexpr qsizetype kMost = 10;
    const QString lines = names.mid(0, kMost).join(u'\n');
    return names.size() <= kMost ? lines : lines + QStringLiteral("\nand %1 more").arg(names.size() - kMost);
}

}  // namespace pondera
