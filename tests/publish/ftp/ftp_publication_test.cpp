#include "publish/ftp/ftp_publication.h"

#include "base/roots.h"
#include "publish/commands/command_executor.h"
#include "publish/ftp/connect_task.h"
#include "publish/ftp/empty_task.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/support/folder_text.h"

namespace pondera {
namespace {

using Kind = RealServer::Kind;

/// A Website "Shop" and a session on a server.
struct Shop {
    explicit Shop(const QString& host) : host(host) {
        control.inet.set_host(host);
        for (const QString& file : {u"çindex.htm"_s, u"index.htm"_s, u"media/img/Sea.jpg"_s, u"media/audio/song.mp3"_s})
            home.put(u"Pondera/Shop/"_s + file, file.toUtf8());
    }

    std::shared_ptr<ConnectTask> go(const QStringList& way) {
        auto task = std::make_shared<ConnectTask>(way);
        run(task);
        return task;
    }

    void run(const std::shared_ptr<RemoteTask>& task) {
        if (!task) return;
        executor.run(task);
        Control::wait_until([this] { return !executor.busy(); });
        EXPECT_TRUE(executor.ready()) << executor.status().toStdString();
    }

    /// Publishes what changed; tells what was sent, removed and fetched: "index.htm -old.htm +img.jpg".
    QString publish(const ConnectTask& connected, const QString& only = {}) {
        control.inet.set_local_root(roots.website(u"Shop"_s));
        auto publication = FtpPublication::begin(
            roots, {.website = u"Shop"_s,
                    .destination = destination(connected),
                    .remote_folder = connected.remote_folder(),
                    .present = connected.present(),
                    .listing = connected.listed() ? std::optional(connected.listing()) : std::nullopt,
                    .only = only});
        EXPECT_TRUE(publication);
        FtpPublication& work = **publication;
        EXPECT_TRUE(work.survey().value_or(false));
        run(work.verify_task());
        run(work.list_task());
        const auto fetch = work.fetch_task();
        run(fetch);
        EXPECT_TRUE(work.prepare().value_or(false));
        const auto send = work.send_task();
        run(send);
        const int sent = send ? send->progress().files : 0;
        EXPECT_TRUE(!send || (send->refused().isEmpty() && send->stopped_by().isEmpty()));
        EXPECT_TRUE(work.close());
        return u"%1 sent, %2 removed, fetched: "_s.arg(sent).arg(work.removals()) +
               (fetch ? fetch->fetched().join(u' ') : QString());
    }

    [[nodiscard]] Destination destination(const ConnectTask& connected) const {
        return Destination::on_server(host, u"anonymous"_s, connected.remote_folder());
    }

    QString host;
    TestFolder home;
    Roots roots{home.path()};
    Control control;
    CommandExecutor executor{control.inet, 5000};
};

class PublicationOnServers : public testing::TestWithParam<Kind> {};

INSTANTIATE_TEST_SUITE_P(All, PublicationOnServers, testing::Values(Kind::kVsftpd, Kind::kPyftpdlib, Kind::kAsyncssh));

TEST_P(PublicationOnServers, FetchesWhatIsNewThereButNeverWhatWasDeletedHere) {
    const RealServer server(GetParam());
    Shop shop(server.host());
    shop.control.meet(server.host());
    const QString folder = server.remote_root() + u"/site"_s;
    const auto publish = [&](const QString& only = {}) { return shop.publish(*shop.go({folder}), only); };
    EXPECT_EQ(publish(), u"3 sent, 0 removed, fetched: ");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");

    // Files of another hand come in, once; those that the Website has stay as they are.
    for (const QString& file : {u"img/New.gif"_s, u"img/Sea.jpg"_s, u"img/Thumbs.DB"_s, u"img/x.png"_s, u"img/.a.jpg"_s,
                                u"img/ç.jpg"_s, u"audio/b b.mp3"_s, u"video/film.mp3"_s})
        ASSERT_TRUE(create_folders(QFileInfo(server.path(u"site/media/"_s + file)).path()) &&
                    write_file(server.path(u"site/media/"_s + file), "theirs"));
    EXPECT_EQ(publish(), u"1 sent, 0 removed, fetched: media/audio/b b.mp3 media/img/New.gif");
    EXPECT_EQ(shop.home.bytes(u"Pondera/Shop/media/img/New.gif"_s), "theirs");
    EXPECT_EQ(shop.home.bytes(u"Pondera/Shop/media/img/Sea.jpg"_s), "media/img/Sea.jpg");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");

    QFile::remove(shop.home.path(u"Pondera/Shop/media/img/New.gif"_s));
    EXPECT_EQ(publish(), u"0 sent, 1 removed, fetched: ");
    EXPECT_FALSE(QFileInfo::exists(server.path(u"site/media/img/New.gif"_s)));
    EXPECT_EQ(publish(u"index.htm"_s), u"1 sent, 0 removed, fetched: ");
    EXPECT_EQ(publish(), u"0 sent, 0 removed, fetched: ");
    EXPECT_EQ(server.bytes(u"site/index.htm"_s), "index.htm");
}

TEST_P(PublicationOnServers, EmptyingLeavesTheFolderAndWhatIsSpared) {
    const RealServer server(GetParam());
    Shop shop(server.host());
    shop.control.meet(server.host());
    const QString folder = server.remote_root() + u"/site"_s;
    shop.publish(*shop.go({folder}));
    for (const QString& file : {u"-rf"_s, u"a \"b\"/c d/e.txt"_s, u"pnd-0123456789abcdef.part"_s, u"keep/cgi-bin/x"_s,
                                u"keep/y"_s, u"../beside.htm"_s})
        ASSERT_TRUE(create_folders(QFileInfo(server.path(u"site/"_s + file)).path()) &&
                    write_file(server.path(u"site/"_s + file), "x"));
    const auto connected = shop.go({folder});
    auto record = PublicationRecord::open(shop.roots.website(u"Shop"_s), shop.destination(*connected));
    ASSERT_TRUE(record);
    EXPECT_EQ(record->files().size(), 3);
    const auto task = std::make_shared<EmptyTask>(folder, &*record,
                                                  [](const RemoteEntry& entry) { return entry.name == u"cgi-bin"; });
    shop.run(task);
    EXPECT_EQ(text_of_folder(server.path({})), u"beside.htm=x site/keep/cgi-bin/x=x");
    EXPECT_EQ(server.names(u"site"_s), QStringList(u"keep"_s));
    EXPECT_EQ(task->deleted(), 7);
    EXPECT_TRUE(task->kept().isEmpty());
    EXPECT_TRUE(record->files().isEmpty());
    ASSERT_TRUE(record->close());
    EXPECT_EQ(shop.publish(*shop.go({folder})), u"3 sent, 0 removed, fetched: ");
}

TEST(FetchTask, BringsNoMoreThanAWebsiteCanHave) {
    const RealServer server(RealServer::Kind::kPyftpdlib);
    Shop shop(server.host());
    shop.control.inet.set_local_root(shop.roots.website(u"Shop"_s));
    QStringList paths;
    for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}) {
        paths << u"media/img/"_s + name;
        ASSERT_TRUE(create_folders(server.path(u"media/img"_s)) && write_file(server.path(paths.constLast()), "12345"));
    }
    for (const FetchBounds& bounds : {FetchBounds{.files = 2}, FetchBounds{.bytes = 6}}) {
        shop.go({u"/"_s});
        const auto task = std::make_shared<FetchTask>(u"/"_s, shop.roots.website(u"Shop"_s), paths, bounds);
        shop.run(task);
        EXPECT_EQ(task->fetched(), paths.first(2));
        EXPECT_EQ(task->refused().size(), 1);
        EXPECT_FALSE(QFileInfo::exists(shop.home.path(u"Pondera/Shop/media/img/c.jpg"_s)));
    }
}

TEST(FtpPublication, WithNothingChangedTakesFewCommands) {
    BadServer server;
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        const auto file = [](const QByteArray& name, qsizetype size) {
            return "-rw-r--r-- 1 a a " + QByteArray::number(size) + " Jan 02 12:00 " + name + "\r\n";
        };
        if (!line.startsWith("CWD")) return std::nullopt;
        server.listing = line.contains("img")     ? file("Sea.jpg", 17)
                         : line.contains("audio") ? file("song.mp3", 20)
                                                  : file("index.htm", 9);
        return std::nullopt;
    };
    Shop shop(server.host());
    shop.publish(*shop.go({u"Vantiles"_s, u"Shop"_s}));
    Shop again(server.host());
    ASSERT_TRUE(
        write_file(again.home.path(u"Pondera/Shop/§_elenco.pnd"_s), shop.home.bytes(u"Pondera/Shop/§_elenco.pnd"_s)));
    server.commands.clear();
    EXPECT_EQ(again.publish(*again.go({u"Vantiles"_s, u"Shop"_s})), u"0 sent, 0 removed, fetched: ");
    EXPECT_LE(server.commands.size(), 25) << server.commands.join('\n').toStdString();
}

TEST(EmptyTask, ListingsLeadNowhereElseAndNoFolderIsEnteredForEver) {
    BadServer server;
    server.listing =
        "-rw-r--r-- 1 a a 1 Jan 02 12:00 ../../etc/passwd\r\n-rw-r--r-- 1 a a 1 Jan 02 12:00 stays.htm\r\n"
        "drwxr-xr-x 1 a a 1 Jan 02 12:00 again\r\ndrwxr-xr-x 1 a a 1 Jan 02 12:00 ..\r\n"
        "lrwxrwxrwx 1 a a 1 Jan 02 12:00 link -> /\r\n";
    Shop shop(server.host());
    shop.go({u"/site"_s});
    server.commands.clear();
    const auto task = std::make_shared<EmptyTask>(u"/site"_s, nullptr);
    shop.run(task);
    EXPECT_EQ(task->deleted(), 0);
    EXPECT_EQ(task->kept().constFirst().path, u"stays.htm");
    EXPECT_LE(server.count("CWD"), 64);
    for (const QByteArray& line : std::as_const(server.commands))
        EXPECT_TRUE(!line.startsWith("RMD") && (!line.startsWith("DELE") || line.startsWith("DELE /site/")))
            << line.toStdString();
}

}  // namespace
}  // namespace pondera
