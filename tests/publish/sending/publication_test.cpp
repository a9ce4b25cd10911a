#include "publish/sending/publication.h"

#include <gmock/gmock.h>

#include "base/roots.h"
#include "publish/sending/prepared_page.h"
#include "publish/sending/time_left.h"
#include "tests/support/folder_text.h"
#include "tests/support/small_disk.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {
namespace {

QStringList paths(const QList<PublishedFile>& files) {
    QStringList result;
    for (const PublishedFile& file : files) result << file.path;
    return result;
}

class Publications : public testing::Test {
  protected:
    void put(const QString& path, const QByteArray& bytes = "x") { home.put(u"base/Pondera/Shop/"_s + path, bytes); }
    [[nodiscard]] PublicationPlan plan(PublicationMode mode, const RemoteFiles& remote, bool remove = true) const {
        return plan_publication(*survey_website(roots, u"Shop"_s), mode, *record, remote, remove);
    }
    void confirm_all() {
        const auto survey = survey_website(roots, u"Shop"_s);
        for (const PublishedFile& file : survey->files) EXPECT_TRUE(record->confirm(file));
    }

    const TestFolder home;
    const Roots roots{home.path(u"base"_s)};
    FileResult<PublicationRecord> record = PublicationRecord::open(home.path(), Destination::in_folder(home.path()));
};

}  // namespace

TEST(PreparedPage, LosesWhatPointsIntoThisMachine) {
    const Roots roots(u"/home/me/Pondera_Folder"_s);
    const auto prepare = [&](const QString& text) { return prepared_page(text, roots, u"My Shop"_s); };
    expect_results(prepare,
                   {
                       u"<A href=\"C:\\Pondera_Folder\\Pondera\\My Shop\\_4_Trips.htm\">\\ | "
                       u"<A href=\"file:///c:/pondera_folder/pondera/My%20Shop/_4_Trips.htm\">\\ | "
                       u"<A href=\"file:///home/me/Pondera_Folder/Pondera/My Shop/_4_Trips.htm\">\\ | "
                       u"<A href=\"../my shop/§_4_Trips.htm\">\\ | <A href=\"%C2%A7_4_Trips.htm\">\\ | <A "
                       u"href=\"&sect;_4_Trips.htm\">\\ "
                       u"→ <A href=\"_4_Trips.htm\">\\",
                       u"<IMG src='C:\\Pondera_Folder\\Pondera\\Other\\media\\img\\a b.jpg'> → <IMG "
                       u"src='../Other/media/img/a b.jpg'>",
                       u"<IMG src=\\Pondera_Folder\\Pondera\\x.jpg alt=\"a\\b\"> → <IMG "
                       u"src=\\Pondera_Folder\\Pondera\\x.jpg alt=\"a\\b\">",
                       u"<A href=\"çindex.htm#top\"> | <A href=\"%e7index.htm#top\"> → <A href=\"index.htm#top\">",
                       u"url(/home/me/Pondera_Folder/Pondera/My%20Shop/media/img/a.gif) \\ → url(media/img/a.gif) \\",
                   });
    expect_unchanged(prepare, {u"<P>§ 4 of the façade, &sect;_4, Pondera \\ file://", u"<A href=\"http://x/%C2%A7_4\">",
                               u"<A href=\"fa%C3%A7ade.htm\">", u"../../My Shop/x"});
}

TEST_F(Publications, SurveyWhatVisitorsGetInTheOrderOfSending) {
    put(u"index.htm"_s, "<IFRAME src=_4_B.htm></IFRAME>");
    put(u"_4_A.htm"_s, "<frame src='_4_C.htm'><FRAME src=index.htm>");
    put(u"_4_B.htm"_s);
    put(u"_4_C.htm"_s, "<frame src=_4_A.htm><frame src=_4_D.htm>");
    put(u"_4_D.htm"_s, "city \xe0 <A href=\"../Shop/x\">");
    for (const char* other : {"§_4_A.htm", "çindex.htm", "Thumbs.db", "§_elenco.pnd", "z.pdf", "media/img/a.jpg"})
        put(QString::fromUtf8(other));
    const auto survey = survey_website(roots, u"Shop"_s);
    ASSERT_TRUE(survey);
    EXPECT_EQ(paths(survey->files), QStringList({u"media/img/a.jpg"_s, u"z.pdf"_s, u"_4_D.htm"_s, u"_4_C.htm"_s,
                                                 u"_4_A.htm"_s, u"_4_B.htm"_s, u"index.htm"_s}));
    EXPECT_EQ(survey->files[1].checksum, "2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881");
    EXPECT_EQ(*prepared_file(roots, u"Shop"_s, u"_4_D.htm"_s), "city \xe0 <A href=\"x\">");
    EXPECT_EQ(survey->files[2].size, 19);
    EXPECT_TRUE(survey_website(roots, u"Shop"_s, [](int done, int) { return done < 3; })->cancelled);
}

TEST_F(Publications, SendWhatIsNotThereAsItShouldBe) {
    for (const char* path : {"index.htm", "a.pdf", "media/img/a.jpg", "media/img/b.jpg", "media/audio/c.mp3"})
        put(QString::fromUtf8(path));
    confirm_all();
    const RemoteFiles all{
        .sizes = {{u"index.htm"_s, 1}, {u"a.pdf"_s, -1}, {u"media/img/a.jpg"_s, 1}, {u"media/img/b.jpg"_s, 1}},
        .listed_folders = {u""_s, u"media/img"_s},
        .folders = {}};
    EXPECT_EQ(paths(plan(PublicationMode::kPartial, all).send), QStringList());
    EXPECT_EQ(plan(PublicationMode::kTotal, all).send.size(), 5);
    RemoteFiles some = all;
    some.sizes.remove(u"media/img/a.jpg"_s);
    some.sizes[u"index.htm"_s] = 2;
    EXPECT_EQ(paths(plan(PublicationMode::kPartial, some).send), QStringList({u"media/img/a.jpg"_s, u"index.htm"_s}));
    EXPECT_EQ(
        paths(plan(PublicationMode::kPartial, {.sizes = {}, .listed_folders = {u"media/audio"_s}, .folders = {}}).send),
        QStringList(u"media/audio/c.mp3"_s));
    put(u"a.pdf"_s, "y");  // the same size
    EXPECT_TRUE(record->begin(u"media/img/b.jpg"_s));
    EXPECT_EQ(paths(plan(PublicationMode::kPartial, all).send), QStringList({u"media/img/b.jpg"_s, u"a.pdf"_s}));
}

TEST_F(Publications, RemoveOnlyWhatWasPublishedFromHere) {
    for (const char* path : {"index.htm", "a.htm", "b.htm", "c.htm", "d.htm", "media/img/e.jpg"})
        put(QString::fromUtf8(path));
    confirm_all();
    QDir(roots.website(u"Shop"_s)).removeRecursively();
    put(u"index.htm"_s);
    EXPECT_TRUE(record->begin(u"d.htm"_s) && record->begin(u"new.htm"_s));
    const RemoteFiles remote{.sizes = {{u"index.htm"_s, 1},
                                       {u"a.htm"_s, 1},
                                       {u"b.htm"_s, 2},
                                       {u"d.htm"_s, 7},
                                       {u"new.htm"_s, 7},
                                       {u"foreign.htm"_s, 1},
                                       {u"media/img/e.jpg"_s, -1}},
                             .listed_folders = {u""_s, u"media/img"_s},
                             .folders = {}};
    EXPECT_EQ(plan(PublicationMode::kPartial, remote).remove,
              QStringList({u"a.htm"_s, u"d.htm"_s, u"new.htm"_s, u"media/img/e.jpg"_s}));
    EXPECT_EQ(plan(PublicationMode::kTotal, remote, false).remove, QStringList());
}

TEST_F(Publications, StageThePlannedFilesAndNothingElse) {
    put(u"index.htm"_s, "<A href='../Shop/x'>");
    put(u"media/img/a.jpg"_s);
    home.put(u"elsewhere/keep"_s);
    for (const bool link : {false, true}) {
        const QString folder = staging_folder(roots, u"Shop"_s, PublicationMode::kPartial);
        if (link) {
            QDir(roots.ftp_folder()).removeRecursively();
            QDir(roots.ftp_total_folder()).removeRecursively();
            ASSERT_TRUE(QFile::link(home.path(u"elsewhere"_s), roots.ftp_total_folder()));
            ASSERT_TRUE(QDir().mkpath(roots.ftp_folder()));
            ASSERT_TRUE(QFile::link(home.path(u"elsewhere"_s), folder));
        } else {
            home.put(u"base/Pondera/FTP/Shop/media/old.htm"_s);
            ASSERT_TRUE(QFile::link(home.path(u"elsewhere"_s), folder + u"/media/img"_s));
        }
        for (const PublicationMode mode : {PublicationMode::kPartial, PublicationMode::kTotal}) {
            EXPECT_TRUE(stage(roots, u"Shop"_s, mode, plan(mode, {})).value_or(false));
            EXPECT_EQ(text_of_folder(staging_folder(roots, u"Shop"_s, mode)),
                      u"index.htm=<A href='x'> media/img/a.jpg=x"_s);
            clear_staging(roots, u"Shop"_s, mode);
        }
        EXPECT_FALSE(QFileInfo::exists(folder));
        EXPECT_EQ(home.bytes(u"elsewhere/keep"_s), "x");
    }
}

TEST_F(Publications, StageNothingWhenAFileIsNotAsSurveyed) {
    for (const QString& path : {u"index.htm"_s, u"z.pdf"_s}) {
        put(u"index.htm"_s);
        put(u"z.pdf"_s);
        const PublicationPlan all = plan(PublicationMode::kTotal, {});
        put(path, "y");
        EXPECT_EQ(stage(roots, u"Shop"_s, PublicationMode::kTotal, all).error().reason,
                  u"it was changed while it was being published"_s);
        ASSERT_TRUE(remove_file(QDir(roots.website(u"Shop"_s)).filePath(path)));
        const auto gone = stage(roots, u"Shop"_s, PublicationMode::kTotal, all);
        EXPECT_EQ(gone.error().number, FaultNumber::kPathNotFound) << gone.error().path.toStdString();
        EXPECT_FALSE(QFileInfo::exists(staging_folder(roots, u"Shop"_s, PublicationMode::kTotal)));
    }
    put(u"index.htm"_s, QByteArray(2'000'000, 'x'));
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "Mounting needs root.";
    EXPECT_EQ(copy_prepared(roots, u"Shop"_s, survey_website(roots, u"Shop"_s)->files.last(), disk.file(u"a"_s), {})
                  .error()
                  .number,
              FaultNumber::kDiskFull);
    EXPECT_FALSE(QFileInfo::exists(disk.file(u"a"_s)));
}

TEST(TimeLeft, IsToldInRoundWords) {
    const auto left = [](const QString& row) {
        const QStringList n = row.split(u' ');
        TimeLeft time;
        time.note(std::chrono::seconds(n[0].toInt()), {.files_done = n[1].toInt(),
                                                       .files = n[2].toInt(),
                                                       .bytes_done = n[3].toLongLong(),
                                                       .bytes = n[4].toLongLong()});
        return time.text();
    };
    expect_results(left, {u"0 0 10 0 10 | 2 5 10 5 10 | 60 0 10 0 10 | 60 10 10 9 9 → ",
                          u"30 5 10 0 0 → less than a minute left", u"75 0 0 5 10 → about a minute left",
                          u"60 100 400 0 0 → about 3 minutes left", u"600 1 100 0 0 → about 17 hours left"});
    EXPECT_EQ(progress_text({.files_done = 12, .files = 2'000, .bytes_done = 1'234'567, .bytes = 75'000'000}),
              u"12 of 2,000 files, 1.2 of 75.0 MB"_s);
}

}  // namespace pondera
