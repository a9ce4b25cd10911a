#include "site/first_start.h"

#include <QDir>
#include <QFile>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

class FirstStart : public testing::Test {
  protected:
    void ship(const QString& file, const QByteArray& bytes) {
        const QString path = shipped_.filePath(file);
        ASSERT_TRUE(create_folders(QFileInfo(path).path()));
        ASSERT_TRUE(write_file(path, bytes));
    }
    [[nodiscard]] QString installed(const QString& file) const { return QDir(roots_.base_folder()).filePath(file); }
    [[nodiscard]] QByteArray bytes_of(const QString& file) const {
        return read_file(installed(file)).value_or("(missing)");
    }
    [[nodiscard]] FileResult<void> start() const { return install_shipped_files(shipped_.path(), roots_); }

    QTemporaryDir shipped_;
    QTemporaryDir home_;
    Roots roots_{home_.filePath(u"Pondera_Folder"_s)};
};

TEST_F(FirstStart, NewVersionsReplaceOnlyWhatTheUserLeftAlone) {
    const QString card = u"Pondera/Pondera_System/Store_§_1_card.htm"_s;
    const QString picture = u"Pondera Graphic/Sea view.jpg"_s;
    const QString help = u"Pondera/_HELP/çindex.htm"_s;
    const QString gone = u"Pondera/Pondera_Tools/Help.exe"_s;
    for (const QString& file : {card, picture, help, gone}) ship(file, "1");
    ASSERT_TRUE(start());
    for (const QString& file : {card, picture, help, gone}) EXPECT_EQ(bytes_of(file), "1");
    EXPECT_TRUE(QFileInfo(roots_.websites()).isDir());

    ASSERT_TRUE(write_file(installed(card), "mine"));
    ASSERT_TRUE(remove_file(installed(gone)));
    for (const QString& file : {card, picture, gone}) ship(file, "2");
    ship(u"Pondera/new.htm"_s, "2");
    for (int starts = 0; starts < 2; ++starts) {
        ASSERT_TRUE(start());
        EXPECT_EQ(bytes_of(card), "mine");
        EXPECT_EQ(bytes_of(picture), "2");
        EXPECT_EQ(bytes_of(help), "1");
        EXPECT_EQ(bytes_of(gone), "2");
        EXPECT_EQ(bytes_of(u"Pondera/new.htm"_s), "2");
    }

    // Put back to what was shipped once, it is followed again.
    ASSERT_TRUE(write_file(installed(card), "2"));
    ASSERT_TRUE(start());
    ship(card, "3");
    ASSERT_TRUE(start());
    EXPECT_EQ(bytes_of(card), "3");
}

TEST_F(FirstStart, AFileThatWasThereBeforeIsTheUsers) {
    ship(u"Pondera/page.htm"_s, "shipped");
    ASSERT_TRUE(create_folders(roots_.websites()));
    ASSERT_TRUE(write_file(installed(u"Pondera/page.htm"_s), "mine"));
    ASSERT_TRUE(start());
    ASSERT_TRUE(start());
    EXPECT_EQ(bytes_of(u"Pondera/page.htm"_s), "mine");
}

TEST_F(FirstStart, OneFaultIsReportedAndTheOthersAreCopied) {
    ship(u"Pondera/a/page.htm"_s, "1");
    ship(u"Pondera/b/page.htm"_s, "1");
    ASSERT_TRUE(create_folders(roots_.websites()));
    ASSERT_TRUE(write_file(installed(u"Pondera/a"_s), "a file where a folder should be"));
    const auto result = start();
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().path.contains(u"/Pondera/a"_s));
    EXPECT_EQ(bytes_of(u"Pondera/b/page.htm"_s), "1");

    EXPECT_EQ(install_shipped_files(shipped_.filePath(u"none"_s), roots_).error().number, FaultNumber::kPathNotFound);
}

TEST_F(FirstStart, WhatIsShippedReadOnlyCanBeReplaced) {
    ship(u"Pondera/page.htm"_s, "1");
    ASSERT_TRUE(QFile::setPermissions(shipped_.filePath(u"Pondera/page.htm"_s), QFile::ReadOwner | QFile::ReadOther));
    ASSERT_TRUE(start());
    EXPECT_TRUE(QFile::permissions(installed(u"Pondera/page.htm"_s)) & QFile::WriteOwner);
}

}  // namespace

}  // namespace pondera
