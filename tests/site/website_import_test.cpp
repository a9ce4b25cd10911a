#include "site/website_import.h"

#include <sys/stat.h>
#include <unistd.h>

#include "base/roots.h"
#include "site/website_listing.h"
#include "tests/support/folder_text.h"
#include "tests/support/small_disk.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A Website "Shop" in a folder elsewhere, and the person's own Websites.
class WebsiteImporting : public testing::Test {
  protected:
    void SetUp() override {
        there_.put_all(u"Shop"_s,
                       u"çindex.htm index.htm §_4_Trips.htm §_elenco.pnd media/thumb.txt media/img/sea.jpg "
                       "media/video/t.mp4"_s,
                       "new");
        ASSERT_TRUE(create_folders(roots_.websites()));
    }

    /// Imports the folder and gives what came of it: "cancelled", what was left out, or the message.
    QString import(const QString& folder, const Steps& steps = {}) {
        const auto plan = plan_import(roots_, folder);
        if (!plan) return plan.error();
        const auto done = import_website(roots_, *plan, steps);
        if (!done) return fault_sentence(done.error());
        return done->cancelled ? u"cancelled"_s : done->left_out.join(u' ');
    }

    TestFolder there_;
    TestFolder base_;
    Roots roots_{base_.path()};
};

TEST_F(WebsiteImporting, TakesItsFilesAndMediaAndNothingElse) {
    there_.put(u"Shop/Inner/çindex.htm"_s);
    there_.put(u"Shop/media/img/old/a.jpg"_s);
    const QString secret = there_.put(u"secret.txt"_s);
    ASSERT_TRUE(QFile::link(secret, there_.path(u"Shop/link.htm"_s)));
    ASSERT_TRUE(QFile::link(there_.path(), there_.path(u"Shop/media/audio"_s)));
    ASSERT_TRUE(QFile::link(u"sea.jpg"_s, there_.path(u"Shop/media/img/same.jpg"_s)));
    ASSERT_EQ(mkfifo(there_.path(u"Shop/pipe"_s).toUtf8().constData(), 0600), 0);
    ASSERT_TRUE(QFile::setPermissions(there_.path(u"Shop/index.htm"_s), QFile::ReadOwner));

    EXPECT_EQ(import(there_.path(u"Shop/."_s)), u"Inner/ link.htm media/audio media/img/old/ pipe");
    EXPECT_EQ(text_of_folder(roots_.website(u"Shop"_s)),
              u"index.htm=new media/img/same.jpg=new media/img/sea.jpg=new media/thumb.txt=new "
              "media/video/t.mp4=new §_4_Trips.htm=new §_elenco.pnd=new çindex.htm=new");
    EXPECT_TRUE(QFileInfo(roots_.website(u"Shop/media/audio"_s)).isDir());
    EXPECT_TRUE(QFileInfo(roots_.website(u"Shop/index.htm"_s)).permission(QFile::WriteOwner));
    EXPECT_EQ(QDir(roots_.websites()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({u"Shop"_s}));
}

TEST_F(WebsiteImporting, WhatCannotBeImportedIsRefusedAndStays) {
    base_.put(u"Pondera/Shop/çindex.htm"_s, "mine");
    base_.put(u"Pondera/Shop/copy/Shop/çindex.htm"_s, "mine");
    base_.put(u"Pondera/Leftover/a.txt"_s, "mine");
    for (const QString& folder : {u"ftp"_s, u".shop"_s, u"two\nlines"_s, u"Leftover"_s})
        there_.put(folder + u"/çindex.htm"_s);
    there_.put(u"Other/index.htm"_s);
    ASSERT_TRUE(QDir(there_.path()).mkdir(u"Borrowed"_s));
    ASSERT_TRUE(QFile::link(there_.path(u"Shop/çindex.htm"_s), there_.path(u"Borrowed/çindex.htm"_s)));
    ASSERT_TRUE(QFile::link(roots_.website(u"Shop"_s), there_.path(u"shop"_s)));
    const QString before = text_of_folder(base_.path());
    const QString none = u"This folder is not a Pondera VANTILE Website."_s;
    const QString itself =
        u"This folder is the Website Shop itself, or lies in it. It can be opened with Open Website."_s;
    for (const QString& folder :
         {there_.path(u"Other"_s), there_.path(u"missing"_s), there_.path(u"Borrowed"_s), u"/"_s})
        EXPECT_EQ(import(folder), none) << folder.toStdString();
    for (const QString& folder :
         {roots_.website(u"Shop/../Shop/"_s), roots_.website(u"Shop/copy/Shop"_s), there_.path(u"shop"_s)})
        EXPECT_EQ(import(folder), itself) << folder.toStdString();
    const auto refusal = [&](const QString& folder) { return import(there_.path(folder)); };
    expect_results(refusal, {u"ftp → Invalid name. Change ftp or choose another name.",
                             u".shop → Invalid name. Change . or choose another name.",
                             u"two\nlines → Invalid name. Change the invisible characters or choose another name.",
                             u"Leftover → Name of the Website already used!"});
    EXPECT_EQ(text_of_folder(base_.path()), before);
}

TEST_F(WebsiteImporting, ReplacesAWholeWebsiteByAWholeOne) {
    base_.put(u"Pondera/SHOP/çindex.htm"_s, "old");
    base_.put(u"Pondera/SHOP/media/img/old.jpg"_s, "old");
    const QString before = text_of_folder(base_.path());
    EXPECT_EQ(import(there_.path(u"Shop"_s), [](int done, int) { return done < 3; }), u"cancelled");
    EXPECT_EQ(text_of_folder(base_.path()), before);
    EXPECT_EQ(import(there_.path(u"Shop"_s)), u"");
    EXPECT_EQ(list_websites(roots_), QStringList({u"SHOP"_s}));
    EXPECT_EQ(text_of_folder(base_.path()), text_of_folder(there_.path()).replace(u"Shop/"_s, u"Pondera/SHOP/"_s));
}

TEST_F(WebsiteImporting, WhatAKilledProgramLeftGoesWithTheNextImport) {
    const auto entries = [this] {
        return QDir(roots_.websites()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    };
    const auto kill = [](int done, int) -> bool {
        done < 3 ? void() : _exit(0);
        return true;
    };
    EXPECT_EXIT((void)import(there_.path(u"Shop"_s), kill), testing::ExitedWithCode(0), "");
    ASSERT_EQ(entries().size(), 1);
    ASSERT_TRUE(QDir(roots_.website(entries().first())).mkdir(u"protected"_s));
    ASSERT_TRUE(QFile::setPermissions(roots_.website(entries().first() + u"/protected"_s), QFile::ReadOwner));
    base_.put(u"Pondera/_new_own/a.txt"_s);
    const auto import_meanwhile = [&](int done, int) { return done > 0 || import(there_.path(u"Shop"_s)).isEmpty(); };
    EXPECT_EQ(import(there_.path(u"Shop"_s), import_meanwhile), u"");
    EXPECT_EQ(entries(), QStringList({u"Shop"_s, u"_new_own"_s}));
}

TEST_F(WebsiteImporting, AFullOrWriteProtectedDiskLeavesNothingOfIt) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "mounting a small disk needs root";
    roots_ = Roots(disk.file(u"base"_s));
    ASSERT_EQ(import(there_.path(u"Shop"_s)), u"");
    const QString before = text_of_folder(disk.file({}));
    there_.put(u"Shop/zz.htm"_s, QByteArray(2 << 20, 'x'));
    EXPECT_EQ(import(there_.path(u"Shop"_s)), u"The disk is full.");
    EXPECT_EQ(text_of_folder(disk.file({})), before);
    EXPECT_EQ(QDir(roots_.websites()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({u"Shop"_s}));
    ASSERT_TRUE(disk.make_read_only());
    EXPECT_TRUE(import(there_.path(u"Shop"_s)).startsWith(u"No permission for "_s + roots_.websites()));
    EXPECT_EQ(text_of_folder(disk.file({})), before);
}

}  // namespace pondera
