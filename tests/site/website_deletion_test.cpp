#include "site/website_deletion.h"

#include "site/website_listing.h"
#include "tests/support/folder_text.h"
#include "tests/support/small_disk.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A Website "Shop" beside a folder with something precious.
class WebsiteDeletion : public testing::Test {
  protected:
    void SetUp() override {
        folder_.put_all(u"Shop"_s,
                        u"çindex.htm index.htm .hidden media/x.txt media/img/a.jpg ../Precious/çindex.htm"_s);
    }

    [[nodiscard]] QString remains() const { return text_of_folder(folder_.path()); }

    TestFolder folder_;
    QString shop_ = folder_.path(u"Shop"_s);
};

TEST_F(WebsiteDeletion, DeletesAllOfItAndNeverWhatALinkLeadsTo) {
    ASSERT_TRUE(QFile::link(folder_.path(u"Precious"_s), folder_.path(u"Shop/media/video"_s)));
    ASSERT_TRUE(QFile::link(folder_.path(u"Precious"_s), folder_.path(u"Shop/precious"_s)));
    ASSERT_TRUE(QFile::link(u"/nowhere"_s, folder_.path(u"Shop/broken"_s)));
    EXPECT_EQ(delete_website(shop_).value(), QStringList());
    EXPECT_FALSE(QFileInfo::exists(shop_));

    folder_.put(u"Shop/index.htm"_s);
    folder_.put(u"Precious/img/a.jpg"_s);
    ASSERT_TRUE(QFile::link(folder_.path(u"Precious"_s), folder_.path(u"Shop/media"_s)));
    EXPECT_EQ(delete_website(shop_).value(), QStringList()) << "without the editing copy of its home page";

    ASSERT_TRUE(QFile::link(folder_.path(u"Precious"_s), shop_));
    EXPECT_EQ(delete_website(shop_).value(), QStringList());
    EXPECT_FALSE(QFileInfo(shop_).isSymLink());
    EXPECT_EQ(remains(), u"Precious/img/a.jpg=x Precious/çindex.htm=x");
}

TEST_F(WebsiteDeletion, WhatIsNotTheWebsitesStaysAndIsTold) {
    for (const QString& file : {u"Shop/papers/a.pdf"_s, u"Shop/media/video/raw/b.mp4"_s}) folder_.put(file, "x");
    ASSERT_TRUE(QDir(shop_).mkdir(u"empty"_s));
    EXPECT_EQ(delete_website(shop_).value(), QStringList({u"empty/"_s, u"media/video/raw/b.mp4"_s, u"papers/a.pdf"_s}));
    EXPECT_FALSE(is_website(shop_));
    EXPECT_EQ(remains(), u"Precious/çindex.htm=x Shop/media/video/raw/b.mp4=x Shop/papers/a.pdf=x");
}

TEST_F(WebsiteDeletion, NothingGoesWhenTheHomePageCannot) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "mounting a read-only disk needs root";
    ASSERT_TRUE(QDir().mkpath(disk.file(u"Shop"_s)));
    for (const QString& file : {u"Shop/çindex.htm"_s, u"Shop/index.htm"_s})
        ASSERT_TRUE(write_file(disk.file(file), "x"));
    ASSERT_TRUE(disk.make_read_only());
    EXPECT_EQ(delete_website(disk.file(u"Shop"_s)).error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(text_of_folder(disk.file({})), u"Shop/index.htm=x Shop/çindex.htm=x");
}

}  // namespace pondera
