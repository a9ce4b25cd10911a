#pragma once

#include <QDir>
#include <QDirIterator>

#include "base/text_file.h"

namespace pondera {

/// All files below a folder with what they hold, in one line: "a.htm=x media/img/b.jpg=y".
inline QString text_of_folder(const QString& folder) {
    QStringList files;
    for (QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); all.hasNext();) {
        const QString path = all.next();
        files += QDir(folder).relativeFilePath(path) + u'=' + QString::fromUtf8(read_file(path).value_or("(missing)"));
    }
    files.sort();
    return files.join(u' ');
}

}  // namespace pondera
