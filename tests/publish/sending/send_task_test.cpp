#include "publish/sending/send_task.h"

#include "publish/transfer/remote_name.h"
#include "tests/publish/publisher.h"
#include "tests/publish/sending/cutting_proxy.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {

using Kind = RealServer::Kind;
using How = TaskEnd::How;

static void make_website(Publisher& shop) {
    shop.put(u"index.htm"_s, "<HTML>home</HTML>");
    shop.put(u"_4_Frame.htm"_s, "<FRAMESET><FRAME src=\"_4_Inner.htm\"></FRAMESET>");
    shop.put(u"_4_Inner.htm"_s, "inner");
    shop.put(u"price list.pdf"_s, picture(70'000));
    shop.put(u"media/img/Sea.jpg"_s, picture(200'000));
    shop.put(u"media/audio/empty.mp3"_s, "");
}

class Servers : public testing::TestWithParam<Kind> {};

TEST_P(Servers, HoldExactlyThePublishedFilesWhateverTheirNames) {
    const RealServer server(GetParam());
    Publisher shop;
    make_website(shop);
    for (const QString& name :
         {u"-rf.jpg"_s, u"a b  c.jpg"_s, u"it's \"x\".jpg"_s, u"50%41 #1;[2]*.jpg"_s, u"è ü €.jpg"_s})
        shop.put(u"media/img/"_s + name, picture(1'000));
    const QString folder = resolve_remote(server.remote_root(), u"Vantiles/Shop"_s);
    const SendProgress first = shop.publish(server.host(), folder, PublicationMode::kTotal).sending->progress();
    EXPECT_EQ(first.bytes_done, first.bytes);
    EXPECT_EQ(files_below(server.path(u"Vantiles/Shop"_s)), shop.files);
    EXPECT_EQ(server.names(u"Vantiles/Shop/media"_s), QStringList({u"audio"_s, u"img"_s, u"video"_s}));

    shop.put(u"media/img/Sea.jpg"_s, picture(200'000).toUpper());
    shop.remove(u"media/img/-rf.jpg"_s);
    shop.remove(u"media/img/50%41 #1;[2]*.jpg"_s);
    shop.put(u"_4_New.htm"_s, "new");
    QFile::remove(server.path(u"Vantiles/Shop/_4_Inner.htm"_s));
    EXPECT_EQ(shop.publish(server.host(), folder).told(), u"3 sent, 2 removed, fetched: ");
    EXPECT_EQ(files_below(server.path(u"Vantiles/Shop"_s)), shop.files);

    if (GetParam() == Kind::kAsyncssh) return;
    const CuttingProxy counting(server.host(), 0, false);
    EXPECT_EQ(shop.publish(counting.host(), folder).sent(), 0);
    EXPECT_LE(counting.commands, 25);  // three more with protection
}

/// One server still hears the command at which the line is cut, the other one does not.
TEST_P(Servers, GoOnAfterACutAtAnyCommand) {
    if (GetParam() == Kind::kAsyncssh) return;  // has no commands in the clear
    const RealServer server(GetParam());
    const QString folder = resolve_remote(server.remote_root(), u"Vantiles/Shop"_s);
    for (int cut = 1;; ++cut) {
        QDir(server.path(u"Vantiles"_s)).removeRecursively();
        Publisher shop;
        make_website(shop);
        CuttingProxy proxy(server.host(), cut, GetParam() == Kind::kVsftpd);
        if (shop.publish(proxy.host(), folder).end.how == How::kDone) break;
        ASSERT_LT(cut, 200);
        const QHash<QString, PublishedFile> confirmed = shop.record()->files();
        shop.remove(u"price list.pdf"_s);
        shop.put(u"media/img/Sea.jpg"_s, "another sea");
        const auto due = std::ranges::count_if(shop.files.keys(), [&](const QString& file) {
            return file.endsWith(u"Sea.jpg") || !confirmed.contains(file);
        });
        EXPECT_EQ(shop.publish(server.host(), folder).sent(), due) << cut;
        ASSERT_EQ(files_below(server.path(u"Vantiles/Shop"_s)), shop.files) << cut;
    }
}

INSTANTIATE_TEST_SUITE_P(All, Servers, testing::Values(Kind::kVsftpd, Kind::kPyftpdlib, Kind::kAsyncssh));

/// What the server refuses, how many files go up of eight pictures and three pages, how often it is tried, and why it
/// ends before the end.
TEST(SendTask, LearnsFromRefusals) {
    struct Row {
        QByteArray line, reply;
        qsizetype stored, refused, tries;
        QString stopped_by;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"CWD /www/media/img", "550 not for you", 3, 8, 3, {}},
             {"STOR /www/media/img/", "550 not for you", 3, 8, 2 * 5 + 3, {}},
             {"STOR /www/media/img/", "552 over quota", 0, 0, 1, u"The server has no room left: 552 over quota"_s},
             {"STOR", "451 failed", 0, 4, 5, u"The server takes no more files: 451 failed"_s},
             {"CWD /", "550 none", 0, 0, 0, u"The folder /www could not be opened on the server: 550 none"_s},
             {"MKD", "550 is there", 11, 0, 11, {}}}) {
        BadServer server;
        server.replies = {{row.line, row.reply}};
        Publisher shop;
        for (int i = 0; i < 8; ++i) shop.put(u"media/img/%1.jpg"_s.arg(i));
        for (const QString& page : {u"index.htm"_s, u"_4_A.htm"_s, u"_4_B.htm"_s}) shop.put(page);
        const Published result = shop.publish(server.host(), u"/www"_s);
        SCOPED_TRACE((row.line + row.reply).toStdString());
        EXPECT_EQ(server.files.size(), row.stored);
        EXPECT_EQ(result.sending->refused().size(), row.refused);
        EXPECT_EQ(server.count("STOR"), row.tries);
        EXPECT_EQ(result.sending->stopped_by(), row.stopped_by);
        EXPECT_EQ(shop.record()->files().size(), row.stored);
    }
}

TEST(SendTask, SendsNothingThatItCannotRecord) {
    BadServer server;
    Publisher shop;
    make_website(shop);
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        if (line.startsWith("MKD")) QDir().mkpath(shop.website(u"§_elencotemp.pnd"_s));
        return std::nullopt;
    };
    EXPECT_THAT(shop.publish(server.host(), u"/www"_s).sending->stopped_by(), Holds(u"could not be written"_s));
    EXPECT_EQ(server.count("STOR"), 0);
}

/// A server that says goodbye after every fifty files; a stack that is smaller than a folder.
TEST(SendTask, SendsThousandsOfFilesInTurns) {
    BadServer server;
    Publisher shop;
    shop.highest_index = 250;
    for (int i = 0; i < 600; ++i) shop.put(u"_4_Page%1.htm"_s.arg(i));
    int stored = 0;
    server.instead = [&stored](const QByteArray& line) -> std::optional<QByteArray> {
        return line.startsWith("STOR") && ++stored % 51 == 0 ? std::optional<QByteArray>("421 enough") : std::nullopt;
    };
    EXPECT_EQ(shop.publish(server.host(), u"/www"_s, PublicationMode::kTotal).end.how, How::kDone);
    EXPECT_EQ(server.files.size(), shop.files.size());
    EXPECT_EQ(shop.record()->files().size(), shop.files.size());
}

}  // namespace pondera
