#pragma once

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "base/files.h"
#include "base/text_file.h"
#include "tests/support/qt_text.h"

namespace pondera {

/// A folder that lasts as long as its test.
class TestFolder {
  public:
    /// The path of the folder, or of a file in it.
    [[nodiscard]] QString path(const QString& file = {}) const { return QDir(dir_.path()).filePath(file); }

    /// Writes a file, with the folders above it; gives its path.
    QString put(const QString& file, const QByteArray& bytes = "x") const {
        EXPECT_TRUE(create_folders(QFileInfo(path(file)).path())) << file.toStdString();
        EXPECT_TRUE(write_file(path(file), bytes)) << file.toStdString();
        return path(file);
    }

    /// Writes files of the same bytes into a folder; blanks part their names.
    void put_all(const QString& folder, const QString& names, const QByteArray& bytes = "x") const {
        for (const QString& name : names.split(u' ')) put(folder + u'/' + name, bytes);
    }

    /// What a file holds.
    [[nodiscard]] QByteArray bytes(const QString& file) const { return read_file(path(file)).value_or("(missing)"); }

  private:
    QTemporaryDir dir_;
};

}  // namespace pondera
