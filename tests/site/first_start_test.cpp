#include "site/first_start.h"

#include "base/roots.h"
#include "tests/support/test_folder.h"

namespace pondera {

class FirstStart : public testing::Test {
  protected:
    [[nodiscard]] FileResult<void> start() const { return install_shipped_files(shipped_.path(), roots_); }

    TestFolder shipped_;
    TestFolder home_;
    Roots roots_{home_.path()};
    const QString page_ = u"Pondera/page.htm"_s;
};

TEST_F(FirstStart, NewVersionsReplaceOnlyWhatTheUserLeftAlone) {
    const QString card = u"Pondera/Pondera_System/Store_§_1_card.htm"_s;
    const QString picture = u"Pondera Graphic/Sea view.jpg"_s;
    const QString help = u"Pondera/_HELP/çindex.htm"_s;
    const QString gone = u"Pondera/Pondera_Tools/Help.exe"_s;
    const QString own = u"Pondera/own.htm"_s;  // was there before
    home_.put(own, "mine");
    for (const QString& file : {card, picture, help, gone, own}) shipped_.put(file, "1");
    ASSERT_TRUE(QFile::setPermissions(shipped_.path(help), QFile::ReadOwner | QFile::ReadOther));
    ASSERT_TRUE(start());
    for (const QString& file : {card, picture, help, gone}) EXPECT_EQ(home_.bytes(file), "1");
    EXPECT_TRUE(QFile::permissions(home_.path(help)) & QFile::WriteOwner);

    home_.put(card, "mine");
    ASSERT_TRUE(remove_file(home_.path(gone)));
    for (const QString& file : {card, picture, gone, page_, own}) shipped_.put(file, "2");
    for (int starts = 0; starts < 2; ++starts) {
        ASSERT_TRUE(start());
        for (const QString& file : {card, own}) EXPECT_EQ(home_.bytes(file), "mine") << file.toStdString();
        EXPECT_EQ(home_.bytes(help), "1");
        for (const QString& file : {picture, gone, page_}) EXPECT_EQ(home_.bytes(file), "2") << file.toStdString();
    }

    // Put back to what was shipped once, it is followed again.
    home_.put(card, "2");
    ASSERT_TRUE(start());
    shipped_.put(card, "3");
    ASSERT_TRUE(start());
    EXPECT_EQ(home_.bytes(card), "3");
}

TEST_F(FirstStart, OneFaultIsReportedAndTheOthersAreCopied) {
    for (const QString& file : {u"Pondera/a/page.htm"_s, u"Pondera/b/page.htm"_s}) shipped_.put(file, "1");
    home_.put(u"Pondera/a"_s, "a file where a folder should be");
    const auto result = start();
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().path.contains(u"/Pondera/a"_s));
    EXPECT_EQ(home_.bytes(u"Pondera/b/page.htm"_s), "1");
    EXPECT_EQ(install_shipped_files(shipped_.path(u"none"_s), roots_).error().number, FaultNumber::kPathNotFound);
}

}  // namespace pondera
