#include "publish/sending/publication.h"

#include "base/roots.h"
#include "publish/sending/prepared_page.h"
#include "publish/sending/time_left.h"
#include "tests/support/folder_text.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

static QString paths(const QList<PublishedFile>& files) {
    QStringList result;
    for (const PublishedFile& file : files) result << file.path;
    return result.join(u' ');
}

/// The Website's folder and that of its pictures as listed: "index.htm=1 media/img/a.jpg=-1".
static RemoteFiles listed(const QString& files) {
    RemoteFiles found{.listed_folders = {u""_s, u"media/img"_s}};
    for (const QString& file : files.split(u' '))
        found.sizes.insert(file.section(u'=', 0, 0), file.section(u'=', 1).toLongLong());
    return found;
}

class Publications : public testing::Test {
  protected:
    /// Writes files of the Website, of one byte unless told.
    void put(const QString& paths, const QByteArray& bytes = "x") const {
        home.put_all(u"base/Pondera/Shop"_s, paths, bytes);
    }
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

TEST(PreparedPage, LosesWhatPointsIntoThisMachine) {
    const Roots roots(u"/home/me/Pondera_Folder"_s);
    const auto prepare = [&](const QString& text) { return prepared_page(text, roots, u"My Shop"_s); };
    expect_results(prepare,
                   {uR"(href="C:\Pondera_Folder\Pondera\My Shop\_4_A.htm">\ → href="_4_A.htm">\)",
                    uR"(href="file:///c:/pondera_folder/pondera/My%20Shop/_4_A.htm"> → href="_4_A.htm">)",
                    uR"(<A href="../my shop/§_4_A.htm"> | <A href="%C2%A7_4_A.htm"> → <A href="_4_A.htm">)",
                    uR"(src='C:\Pondera_Folder\Pondera\Art\img\a b.jpg'>\ → src='../Art/img/a b.jpg'>\)",
                    uR"(<A href="çindex.htm#top"> | <A href="&#231;index.htm#top"> → <A href="index.htm#top">)",
                    uR"(url(/home/me/Pondera_Folder/Pondera/My%20Shop/a.gif) \ → url(a.gif) \)"});
    expect_unchanged(prepare, {u"<P>§ 4 of the façade, &sect;_4, Pondera \\ file://", u"<A href=\"http://x/%C2%A7_4\">",
                               u"<A href=\"fa%C3%A7ade.htm\">", u"../../My Shop/x"});
}

TEST_F(Publications, SurveyWhatVisitorsGetInTheOrderOfSending) {
    put(u"index.htm"_s, "<IFRAME src=_4_B.htm></IFRAME>");
    put(u"_4_A.htm"_s, "<frame src='_4_C.htm'><FRAME src=index.htm>");
    put(u"_4_C.htm"_s, "<frame src=_4_A.htm><frame src=_4_D.htm>");
    put(u"_4_D.htm"_s, "city \xe0 <A href=\"../Shop/x\">");
    put(u"_4_B.htm §_4_A.htm çindex.htm Thumbs.db §_elenco.pnd z.pdf z.htm media/img/a.jpg"_s);
    const auto survey = survey_website(roots, u"Shop"_s);
    EXPECT_EQ(paths(survey->files), u"media/img/a.jpg z.pdf _4_D.htm _4_C.htm _4_A.htm _4_B.htm z.htm index.htm");
    EXPECT_EQ(survey->files[1].checksum, "2d711642b726b04401627ca9fbac32f5c8530fb1903cc4db02258717921a4881");
    EXPECT_EQ(*prepared_file(roots, u"Shop"_s, u"_4_D.htm"_s), "city \xe0 <A href=\"x\">");
    EXPECT_EQ(survey->files[2].size, 19);
    EXPECT_TRUE(survey_website(roots, u"Shop"_s, [](int done, int) { return done < 3; })->cancelled);
}

TEST_F(Publications, SendWhatIsNotThereAsItShouldBe) {
    put(u"index.htm a.pdf media/img/a.jpg media/img/b.jpg media/audio/c.mp3"_s);
    confirm_all();
    const auto sent = [this](const RemoteFiles& remote) { return paths(plan(PublicationMode::kPartial, remote).send); };
    const RemoteFiles all = listed(u"index.htm=1 a.pdf=-1 media/img/a.jpg=1 media/img/b.jpg=1"_s);
    EXPECT_EQ(sent(all), u""_s);
    EXPECT_EQ(plan(PublicationMode::kTotal, all).send.size(), 5);
    EXPECT_EQ(sent(listed(u"index.htm=2 a.pdf=1 media/img/b.jpg=1"_s)), u"media/img/a.jpg index.htm"_s);
    EXPECT_EQ(sent({.listed_folders = {u"media/audio"_s}}), u"media/audio/c.mp3"_s);
    put(u"a.pdf"_s, "y");
    EXPECT_TRUE(record->begin(u"media/img/b.jpg"_s));
    EXPECT_EQ(sent(all), u"media/img/b.jpg a.pdf"_s);
}

TEST_F(Publications, RemoveOnlyWhatWasPublishedFromHere) {
    put(u"index.htm a.htm b.htm c.htm d.htm media/img/e.jpg"_s);
    confirm_all();
    QDir(roots.website(u"Shop"_s)).removeRecursively();
    put(u"index.htm"_s);
    EXPECT_TRUE(record->begin(u"d.htm"_s) && record->begin(u"new.htm"_s));
    const RemoteFiles remote =
        listed(u"index.htm=1 a.htm=1 b.htm=2 d.htm=7 new.htm=7 foreign.htm=1 media/img/e.jpg=-1"_s);
    EXPECT_EQ(plan(PublicationMode::kPartial, remote).remove.join(u' '), u"a.htm d.htm new.htm media/img/e.jpg"_s);
    EXPECT_EQ(plan(PublicationMode::kTotal, remote, false).remove, QStringList());
}

TEST_F(Publications, StageThePlannedFilesAndNothingElse) {
    put(u"index.htm"_s, "<A href='../Shop/x'>");
    put(u"media/img/a.jpg"_s);
    home.put(u"elsewhere/Shop/keep"_s);
    home.put(u"base/Pondera/FTP/Shop/media/old.htm"_s);
    QDir().mkdir(roots.ftp_total_folder());
    // Links at every place where one could stand: what they lead to stays.
    for (const QString& link : {u"FTP/Shop/media/img"_s, u"FTP_TOTAL/Shop"_s, u"FTP"_s}) {
        QDir(roots.website(link)).removeRecursively();
        ASSERT_TRUE(QFile::link(home.path(u"elsewhere"_s), roots.website(link)));
        for (const PublicationMode mode : {PublicationMode::kPartial, PublicationMode::kTotal}) {
            const QString folder = staging_folder(roots, u"Shop"_s, mode);
            EXPECT_TRUE(stage(roots, u"Shop"_s, mode, plan(mode, {})).value_or(false));
            EXPECT_EQ(text_of_folder(folder), u"index.htm=<A href='x'> media/img/a.jpg=x"_s);
            clear_staging(roots, u"Shop"_s, mode);
            EXPECT_FALSE(QFileInfo::exists(folder));
        }
        EXPECT_EQ(text_of_folder(home.path(u"elsewhere"_s)), u"Shop/keep=x"_s);
    }
}

TEST_F(Publications, StageNothingWhenAFileIsNotAsSurveyed) {
    for (const QString& path : {u"index.htm"_s, u"z.pdf"_s}) {
        put(u"index.htm z.pdf"_s);
        const PublicationPlan all = plan(PublicationMode::kTotal, {});
        put(path, "y");
        EXPECT_EQ(stage(roots, u"Shop"_s, PublicationMode::kTotal, all).error().reason,
                  u"it was changed while it was being published"_s);
        ASSERT_TRUE(remove_file(QDir(roots.website(u"Shop"_s)).filePath(path)));
        EXPECT_EQ(stage(roots, u"Shop"_s, PublicationMode::kTotal, all).error().number, FaultNumber::kPathNotFound);
        EXPECT_FALSE(QFileInfo::exists(staging_folder(roots, u"Shop"_s, PublicationMode::kTotal)));
    }
}

TEST(TimeLeft, IsToldInRoundWords) {
    const auto after_a_minute = [](const QString& files_done) {
        TimeLeft time;
        time.note(std::chrono::minutes(1), {.files_done = files_done.toInt(), .files = 1'000});
        return time.text();
    };
    expect_results(after_a_minute, {u"0 | 1000 → ", u"501 → less than a minute left", u"450 → about a minute left",
                                    u"250 → about 3 minutes left", u"1 → about 17 hours left"});
    EXPECT_EQ(progress_text({.files_done = 12, .files = 2'000, .bytes_done = 1'234'567, .bytes = 75'000'000}),
              u"12 of 2,000 files, 1.2 of 75.0 MB"_s);
}

}  // namespace pondera
