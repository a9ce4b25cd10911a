#include "publish/ftp/empty_task.h"
#include "tests/publish/publisher.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/support/folder_text.h"

namespace pondera {

class PublicationOnServers : public testing::TestWithParam<RealServer::Kind> {
  protected:
    void SetUp() override {
        for (const QString& file : {u"index.htm"_s, u"media/img/Sea.jpg"_s, u"media/audio/song.mp3"_s}) shop.put(file);
    }
    QString publish(const QString& only = {}) {
        return shop.publish(server.host(), folder, PublicationMode::kPartial, only).told();
    }
    /// Files of another hand in the folder.
    void put(const QStringList& files) const {
        for (const QString& file : files) server.put(u"site/"_s + file, "theirs");
    }

    const RealServer server{GetParam()};
    const QString folder = server.remote_root() + u"/site"_s;
    Publisher shop;
};

INSTANTIATE_TEST_SUITE_P(All, PublicationOnServers,
                         testing::Values(RealServer::Kind::kVsftpd, RealServer::Kind::kPyftpdlib,
                                         RealServer::Kind::kAsyncssh));

TEST_P(PublicationOnServers, FetchesWhatIsNewThereButNeverWhatWasDeletedHere) {
    EXPECT_EQ(publish(), u"3 sent, 0 removed, fetched: ");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");

    // They come in, once; those that the Website has stay as they are.
    put({u"media/img/New.gif"_s, u"media/img/Sea.jpg"_s, u"media/img/Thumbs.DB"_s, u"media/img/x.png"_s,
         u"media/img/.a.jpg"_s, u"media/img/ç.jpg"_s, u"media/audio/b b.mp3"_s, u"media/video/film.mp3"_s});
    EXPECT_EQ(publish(), u"1 sent, 0 removed, fetched: media/audio/b b.mp3 media/img/New.gif");
    EXPECT_EQ(read_file(shop.website(u"media/img/New.gif"_s)), "theirs");
    EXPECT_EQ(read_file(shop.website(u"media/img/Sea.jpg"_s)), "x");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");

    shop.remove(u"media/img/New.gif"_s);
    EXPECT_EQ(publish(), u"0 sent, 1 removed, fetched: ");
    EXPECT_FALSE(QFileInfo::exists(server.path(u"site/media/img/New.gif"_s)));
    EXPECT_EQ(publish(u"index.htm"_s), u"1 sent, 0 removed, fetched: ");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");
}

TEST_P(PublicationOnServers, EmptyingLeavesTheFolderAndWhatIsSpared) {
    publish();
    put({u"-rf"_s, u"a \"b\"/c d/e.txt"_s, u"pnd-0123456789abcdef.part"_s, u"keep/cgi-bin/x"_s, u"keep/y"_s,
         u"../beside.htm"_s});
    auto record = shop.record();
    EXPECT_EQ(record->files().size(), 3);
    Session session(server.host());
    const auto task = session.run(std::make_shared<EmptyTask>(
        folder, &*record, [](const RemoteEntry& entry) { return entry.name == u"cgi-bin"; }));
    EXPECT_EQ(text_of_folder(server.path({})), u"beside.htm=theirs site/keep/cgi-bin/x=theirs");
    EXPECT_EQ(server.names(u"site"_s), QStringList(u"keep"_s));
    EXPECT_EQ(task->deleted(), 7);
    EXPECT_TRUE(task->kept().isEmpty());
    ASSERT_TRUE(record->close());
    EXPECT_EQ(publish(), u"3 sent, 0 removed, fetched: ");
}

TEST(FetchTask, BringsNoMoreThanAWebsiteCanHave) {
    BadServer server;
    const QStringList paths{u"media/img/a.jpg"_s, u"media/img/b.jpg"_s, u"media/img/c.jpg"_s};
    for (const QString& path : paths) server.files["/site/" + path.toUtf8()] = "12345";
    for (const FetchBounds& bounds : {FetchBounds{.files = 2}, FetchBounds{.bytes = 6}}) {
        const TestFolder website;
        Session session(server.host());
        session.control.inet.set_local_root(website.path());
        const auto task = session.run(std::make_shared<FetchTask>(u"/site"_s, website.path(), paths, bounds));
        EXPECT_EQ(task->refused().size(), 1);
        EXPECT_EQ(text_of_folder(website.path()), u"media/img/a.jpg=12345 media/img/b.jpg=12345");
    }
}

TEST(EmptyTask, ListingsLeadNowhereElseAndNoFolderIsEnteredForEver) {
    BadServer server;
    server.listing =
        "-rw-r--r-- 1 a a 1 Jan 02 12:00 ../../etc/passwd\r\n-rw-r--r-- 1 a a 1 Jan 02 12:00 stays.htm\r\n"
        "drwxr-xr-x 1 a a 1 Jan 02 12:00 again\r\ndrwxr-xr-x 1 a a 1 Jan 02 12:00 ..\r\n"
        "lrwxrwxrwx 1 a a 1 Jan 02 12:00 link -> /\r\n";
    Session session(server.host());
    const auto task = session.run(std::make_shared<EmptyTask>(u"/site"_s, nullptr));
    EXPECT_EQ(task->deleted(), 0);
    EXPECT_EQ(task->kept().constFirst().path, u"stays.htm");
    EXPECT_LE(server.count("CWD"), 64);
    EXPECT_EQ(server.count("RMD"), 0);
    EXPECT_EQ(server.count("DELE"), server.count("DELE /site/"));
}

}  // namespace pondera
