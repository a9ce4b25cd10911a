#include "publish/sending/folder_publication.h"

#include "base/roots.h"
#include "publish/transfer/remote_name.h"
#include "tests/support/folder_text.h"
#include "tests/support/small_disk.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

class FolderPublications : public testing::Test {
  protected:
    void SetUp() override {
        put(u"index.htm"_s, "<A href='../Shop/x'>");
        put(u"§_4_A.htm"_s, "editing copy");
        put(u"_4_A.htm"_s, "a");
        put(u"media/img/sea.jpg"_s, "sea");
        QDir().mkpath(stick());
    }
    void put(const QString& path, const QByteArray& bytes) { home.put(u"base/Pondera/Shop/"_s + path, bytes); }
    void lose(const QString& path) { ASSERT_TRUE(remove_file(roots.website(u"Shop"_s) + u'/' + path)); }
    [[nodiscard]] QString stick(const QString& path = {}) const { return home.path(u"stick/"_s + path); }
    [[nodiscard]] FileResult<FolderPublication> publish(PublicationMode mode = PublicationMode::kPartial,
                                                        const Steps& steps = {}) const {
        return publish_to_folder(roots, u"Shop"_s, stick(), mode, true, steps);
    }
    [[nodiscard]] int written(PublicationMode mode = PublicationMode::kPartial) const {
        return publish(mode).value_or(FolderPublication{.files = -1}).files;
    }

    const TestFolder home;
    const Roots roots{home.path(u"base"_s)};
    const QString whole = u"_4_A.htm=a index.htm=<A href='x'> media/img/sea.jpg=sea"_s;
};

TEST_F(FolderPublications, WriteWhatIsNotThereAsItShouldBe) {
    EXPECT_EQ(written(), 3);
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
    EXPECT_TRUE(QFileInfo(stick(u"Shop/media/video"_s)).isDir());
    EXPECT_EQ(written(), 0);
    EXPECT_EQ(written(PublicationMode::kTotal), 3);
    // Another stick at the same place, whose page has the same size; and a file whose time alone is another.
    home.put(u"stick/Shop/_4_A.htm"_s, "b");
    for (const QString& name : {u"_4_A.htm"_s, u"media/img/sea.jpg"_s}) {
        QFile file(stick(u"Shop/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::fromSecsSinceEpoch(1'700'000'000), QFile::FileModificationTime));
    }
    EXPECT_EQ(written(), 1);
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
    home.put(u"stick/Shop/own.htm"_s, "own");
    lose(u"_4_A.htm"_s);
    EXPECT_EQ(publish()->removed, 1);
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), u"index.htm=<A href='x'> media/img/sea.jpg=sea own.htm=own"_s);
}

TEST_F(FolderPublications, FilesThatTheDriveRefusesStopNoOther) {
    QDir().mkpath(stick(u"Shop/media/img/in:the.way"_s));
    put(u"media/img/in:the.way"_s, "never");
    for (int time = 0; time < 2; ++time) {
        const auto done = publish();
        ASSERT_TRUE(done);
        EXPECT_EQ(done->refused.value(0).path, u"media/img/in:the.way");
        EXPECT_THAT(done->refused.value(0).reply, Holds(u"no names with :"_s));
        EXPECT_EQ(done->files, time == 0 ? 3 : 0);
    }
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
    lose(u"media/img/in:the.way"_s);

    QDir(stick(u"Shop"_s)).mkdir(u"MEDIA"_s);  // as a drive that knows no capital letters seems to have it
    put(u"INDEX.htm"_s, "other");
    EXPECT_EQ(publish()->refused.value(0).path, u"INDEX.htm");
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
    lose(u"INDEX.htm"_s);
    // There the new name is the old one's file, which must not be removed behind it.
    lose(u"media/img/sea.jpg"_s);
    put(u"media/img/Sea.JPG"_s, "sea");
    const auto renamed = publish();
    EXPECT_EQ(renamed->files + renamed->removed, 1);
    EXPECT_EQ(written(), 0);
}

TEST_F(FolderPublications, GoOnWhereTheyStopped) {
    for (int stop = 0;; ++stop) {
        QDir(stick(u"Shop"_s)).removeRecursively();
        QFile::remove(roots.website(u"Shop"_s) + u"/§_elenco.pnd"_s);
        int steps = 0;
        const auto first = publish(PublicationMode::kPartial, [&](int, int) { return ++steps <= stop; });
        ASSERT_TRUE(first);
        if (!first->cancelled) break;
        ASSERT_LT(stop, 50);
        EXPECT_EQ(first->files + written(), 3) << stop;
        EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
    }
    // What a stick that was pulled out was left with.
    auto record = PublicationRecord::open(roots.website(u"Shop"_s), Destination::in_folder(stick(u"Shop"_s)));
    ASSERT_TRUE(record && record->begin(u"gone.htm"_s));
    ASSERT_TRUE(write_file(temporary_beside(stick(u"Shop/gone.htm"_s)), "half a pa"));
    EXPECT_EQ(written(), 0);
    EXPECT_EQ(text_of_folder(stick(u"Shop"_s)), whole);
}

TEST_F(FolderPublications, FaultsOfTheMedium) {
    put(u"media/img/big.jpg"_s, QByteArray(2'000'000, 'b'));
    put(u"media/img/a.jpg"_s, "first");
    SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "Mounting needs root.";
    const auto to_disk = [&](const Steps& steps = {}) {
        return publish_to_folder(roots, u"Shop"_s, disk.file({}), PublicationMode::kPartial, true, steps);
    };
    EXPECT_EQ(to_disk().error().number, FaultNumber::kDiskFull);
    EXPECT_EQ(text_of_folder(disk.file(u"Shop"_s)), u"media/img/a.jpg=first"_s);
    put(u"media/img/big.jpg"_s, "small");
    EXPECT_EQ(to_disk()->files, 4);
    put(u"_4_A.htm"_s, "changed");
    const auto pull_out = [&](int done, int total) {
        return done < total - 1 || QDir(disk.file(u"Shop"_s)).removeRecursively();
    };
    EXPECT_EQ(to_disk(pull_out).error().number, FaultNumber::kPathNotFound);
    EXPECT_FALSE(QFileInfo::exists(disk.file(u"Shop"_s)));
    EXPECT_EQ(to_disk()->files, 5);
    ASSERT_TRUE(disk.make_read_only());
    put(u"_4_A.htm"_s, "again");
    EXPECT_EQ(to_disk().error().number, FaultNumber::kPermissionDenied);
    EXPECT_THAT(refusal_of_folder(roots, u"Shop"_s, disk.file({})), Holds(u" cannot be written to."_s));
}

/// Each row is the folder and the Website's name.
TEST_F(FolderPublications, RefusedFolders) {
    const auto refusal = [&](const QString& row) {
        const QString folder = home.path(row.section(u' ', 0, 0));
        return refusal_of_folder(roots, row.section(u' ', 1), folder).remove(home.path() + u'/');
    };
    ASSERT_TRUE(QFile::link(roots.website(u"Shop"_s), stick(u"Linked"_s)));
    expect_results(refusal, {u"stick Shop | base Shop → ", u"no Shop → The folder no does not exist.",
                             u"base/Pondera/Shop/index.htm x → base/Pondera/Shop/index.htm is a file, not a folder.",
                             u"base/Pondera/Shop x | base Pondera | base/.. base | stick Linked → "
                             "Choose a place outside of the folder of your Websites."});
}

}  // namespace pondera
