#include "tests/publish/transfer/bad_server.h"

#include <QFile>

#include "tests/publish/transfer/control.h"
#include "tests/support/test_folder.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

class BadServers : public testing::Test {
  protected:
    void SetUp() override {
        control.inet.set_host(server.host());
        control.inet.set_local_root(site.path());
        page = site.put(u"page.htm"_s, QByteArray(200'000, 'p'));
    }
    int send(const QString& name = u"page.htm"_s) { return control.run(u"SEND "_s + page + u' ' + name); }

    const TestFolder site;
    QString page;
    BadServer server;
    Control control;
};

TEST_F(BadServers, AFileTakesFourCommands) {
    qint64 total = 0;
    QObject::connect(&control.inet, &InternetTransfer::Progress, [&](qint64, qint64 all) { total = all; });
    ASSERT_EQ(send(), kFine);
    EXPECT_EQ(total, 200'000);
    const qsizetype before = server.commands.size();
    EXPECT_LE(before, 14) << server.commands.join(" | ").toStdString();
    for (int i = 0; i < 50; ++i) ASSERT_EQ(send(u"page%1.htm"_s.arg(i)), kFine);
    EXPECT_EQ(server.commands.size() - before, 200)
        << server.commands.sliced(before).first(8).join(" | ").toStdString();
    EXPECT_EQ(server.sessions, 1);
    EXPECT_EQ(server.files.size(), 51);
    EXPECT_EQ(server.files.value("/home/page49.htm").size(), 200'000);
}

TEST_F(BadServers, TheStatesOfACommand) {
    server.welcome =
        "220-" + QByteArrayList(100, "welcome, welcome").join("\r\n220-") + "\r\n 421 are here\r\n220 ready\r\n";
    ASSERT_EQ(control.run(u"MKDIR x"_s), kFine);
    using enum InternetState;
    EXPECT_EQ(control.states.first(7), (QList{kResolvingHost, kHostResolved, kConnecting, kConnected, kRequesting,
                                              kRequestSent, kReceivingResponse}));
    EXPECT_EQ(control.states.last(2), (QList{kResponseReceived, kResponseCompleted}));
}

TEST_F(BadServers, BrokenConnectionsAreBuiltAgain) {
    ASSERT_EQ(control.run(u"CD /www"_s), kFine);
    int left = 2;
    server.instead = [&left](const QByteArray& line) -> std::optional<QByteArray> {
        if (!line.startsWith("RNTO") || left == 0) return std::nullopt;
        return --left == 1 ? "421 too many files" : "hang up";
    };
    server.cut_after = 100'000;
    EXPECT_EQ(send(), kFine) << control.inet.ResponseInfo().toStdString();
    EXPECT_EQ(server.sessions, 4);
    EXPECT_EQ(server.files.size(), 1);
    EXPECT_EQ(server.files.value("/www/page.htm").size(), 200'000);
    // A farewell between two commands costs nothing but a new session.
    server.farewell();
    EXPECT_EQ(send(), kFine);
    EXPECT_EQ(server.sessions, 5);
    server.cut_after = 1'000;
    const QString copy = site.put(u"copy.htm"_s, "old");
    EXPECT_EQ(control.run(u"GET page.htm "_s + copy), kFine);
    EXPECT_EQ(site.bytes(u"copy.htm"_s).size(), 200'000);
    EXPECT_EQ(server.sessions, 6);
    // What was refused before the break does not stand for it.
    server.instead = [first = true](const QByteArray& line) mutable -> std::optional<QByteArray> {
        if (line.startsWith("SIZE")) return "502 not here";
        return line.startsWith("RETR") && std::exchange(first, false) ? std::optional<QByteArray>("hang up")
                                                                      : std::nullopt;
    };
    EXPECT_EQ(control.run(u"GET page.htm "_s + copy), kFine) << control.inet.ResponseInfo().toStdString();
}

TEST_F(BadServers, HalfAFileLeavesTheLocalOneAsItWas) {
    server.files = {{"/home/page.htm", QByteArray(200'000, 's')}};
    server.cut_after = 1'000;
    Control once({.retries = {}});
    once.inet.set_host(server.host());
    once.inet.set_local_root(site.path());
    const QString copy = site.put(u"copy.htm"_s, "old");
    EXPECT_EQ(once.run(u"GET page.htm "_s + copy), kConnectionEnded);
    EXPECT_EQ(site.bytes(u"copy.htm"_s), "old");
    EXPECT_EQ(QDir(site.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(BadServers, AFileThatIsTooLargeIsNotBegun) {
    server.files = {{"/home/film.mp3", "f"}};
    server.instead = [](const QByteArray& line) -> std::optional<QByteArray> {
        return line.startsWith("SIZE") ? std::optional<QByteArray>("213 1073741825") : std::nullopt;
    };
    EXPECT_EQ(control.run(u"GET film.mp3 "_s + site.path(u"film.mp3"_s)), kServerAnsweredError);
    EXPECT_EQ(control.inet.ResponseInfo(), u"The file is larger than 1 GB."_s);
    EXPECT_EQ(server.count("RETR"), 0);
    EXPECT_FALSE(QFile::exists(site.path(u"film.mp3"_s)));
}

TEST_F(BadServers, Ipv6) {
    BadServer server6(QHostAddress::LocalHostIPv6);
    if (!server6.isListening()) GTEST_SKIP() << "This machine has no IPv6.";
    control.inet.set_host(server6.host());
    EXPECT_EQ(send(), kFine) << control.inet.ResponseInfo().toStdString();
    EXPECT_EQ(server6.files.value("/home/page.htm").size(), 200'000);
}

TEST_F(BadServers, AConnectionThatBreaksForEverEndsTheCommand) {
    ASSERT_EQ(control.run(u"MKDIR x"_s), kFine);
    server.instead = [](const QByteArray& line) -> std::optional<QByteArray> {
        return line.startsWith("STOR") ? std::optional<QByteArray>("421 no") : std::nullopt;
    };
    EXPECT_EQ(send(), kConnectionEnded);
    EXPECT_EQ(control.inet.ResponseInfo(), u"421 no"_s);
    EXPECT_EQ(server.sessions, 4);
}

/// A verb, the reply to it, and how "SEND" ends; the old page is whole whenever the new one is not there.
TEST_F(BadServers, RefusedUploads) {
    struct Row {
        QByteArray verb;
        QByteArray reply;
        int code;
        bool replaced;
    };
    for (const Row& row :
         {Row{"STOR /home/pnd", "552 full", kServerAnsweredError, false},
          Row{"STOR", "550 no", kServerAnsweredError, false}, Row{"STOR /home/pnd", "553 no such names", kFine, true},
          Row{"passive", "502 no", kServerAnsweredError, false}, Row{"EPSV", "500 what?", kFine, true},
          Row{"FEAT", "500 what?", kFine, true}, Row{"RNFR", "550 no renaming", kFine, true},
          Row{"RNTO", "550 no renaming", kFine, true}}) {
        server.files = {{"/home/page.htm", "old"}};
        server.instead = [&row](const QByteArray& line) -> std::optional<QByteArray> {
            const bool passive = row.verb == "passive" && (line == "EPSV" || line == "PASV");
            return passive || line.startsWith(row.verb) ? std::optional(row.reply) : std::nullopt;
        };
        Control fresh;
        fresh.inet.set_host(server.host());
        EXPECT_EQ(fresh.run(u"SEND "_s + page + u" page.htm"_s), row.code) << (row.verb + row.reply).toStdString();
        EXPECT_EQ(server.files.size(), 1) << (row.verb + row.reply).toStdString();
        EXPECT_EQ(server.files.value("/home/page.htm").size(), row.replaced ? 200'000 : 3)
            << (row.verb + row.reply).toStdString();
        EXPECT_EQ(fresh.inet.ResponseInfo().startsWith(u'5'), row.code != kFine)
            << (row.verb + row.reply).toStdString();
    }
}

TEST_F(BadServers, AFileThatChangesIsNotPublished) {
    server.files = {{"/home/page.htm", "old"}};
    for (const bool grows : {true, false}) {
        server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
            if (!line.startsWith("STOR")) return std::nullopt;
            QFile file(page);
            EXPECT_TRUE(file.resize(grows ? 300'000 : 1'000));
            return std::nullopt;
        };
        EXPECT_EQ(send(), kFileChanged);
        EXPECT_EQ(server.files.value("/home/page.htm"), "old");
        EXPECT_EQ(server.count("RNFR"), 0);
    }
}

TEST_F(BadServers, EveryWaitIsBoundedAndCanBeCancelled) {
    for (const QByteArray verb : {"welcome", "AUTH", "USER", "FEAT", "EPSV", "STOR", "stored", "RNTO"}) {
        BadServer mute;
        bool reached = verb == "welcome";
        if (verb == "welcome") mute.welcome.clear();
        mute.silent_after_upload = verb == "stored";
        mute.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
            reached = reached || line.startsWith(verb == "stored" ? "STOR" : verb);
            if (line.startsWith("AUTH") && verb == "AUTH") return "234 and no handshake";
            return reached && (verb == "AUTH" || line.startsWith(verb)) ? std::optional<QByteArray>("") : std::nullopt;
        };
        Control quick({.connect = std::chrono::seconds(1), .silence = std::chrono::seconds(1), .retries = {}});
        quick.inet.set_host(mute.host());
        EXPECT_EQ(quick.run(u"SEND "_s + page + u" page.htm"_s), kTimedOut) << verb.toStdString();

        Control patient;
        patient.inet.set_host(mute.host());
        reached = verb == "welcome";
        patient.inet.Execute(u"SEND "_s + page + u" page.htm"_s);
        Control::wait_until([&] { return reached; });
        patient.inet.Cancel();
        EXPECT_FALSE(patient.inet.StillExecuting());
        EXPECT_EQ(patient.states.last(), InternetState::kDisconnected);
        mute.instead = nullptr;
        mute.silent_after_upload = false;
        mute.welcome = "220 ready\r\n";
        QElapsedTimer waited;
        waited.start();
        EXPECT_EQ(patient.run(u"MKDIR y"_s), kFine) << verb.toStdString();
        EXPECT_LT(waited.elapsed(), 1'000) << verb.toStdString();
    }
}

TEST_F(BadServers, RepliesWithoutEnd) {
    server.instead = [](const QByteArray& line) -> std::optional<QByteArray> {
        return line.startsWith("MKD") ? std::optional(QByteArray("250-on and on\r\n").repeated(200'000)) : std::nullopt;
    };
    EXPECT_EQ(control.run(u"MKDIR x"_s), kConnectionEnded);
    server.instead = nullptr;
    EXPECT_EQ(control.run(u"MKDIR x"_s), kFine);
}

TEST_F(BadServers, Listings) {
    server.listing = QByteArray("01-02-24  03:04PM       12 a.htm\r\n").repeated(10'001);
    ASSERT_EQ(control.run(u"DIR"_s), kFine);
    EXPECT_EQ(control.inet.Listing().entries.size(), 10'001);
    EXPECT_EQ(server.count("LIST"), 1);
    server.features << "MLST type*;size*;";
    server.listing = "type=file;size=3; caff\xe8.htm\r\ntype=file;size=3; ../x\r\n";
    Control machine;
    machine.inet.set_host(server.host());
    ASSERT_EQ(machine.run(u"DIR"_s), kFine);
    EXPECT_EQ(machine.inet.Listing().entries.size(), 1);
    EXPECT_EQ(server.count("MLSD"), 1);
    // A name of an old server is sent back in the server's own bytes.
    EXPECT_EQ(machine.run(u"DELETE caffè.htm"_s), kServerAnsweredError);
    EXPECT_EQ(server.commands.last(), "DELE /home/caff\xe8.htm");
    EXPECT_EQ(machine.run(u"DELETE /www/caffè.htm"_s), kServerAnsweredError);
    EXPECT_EQ(server.commands.last(), "DELE /www/caff\xc3\xa8.htm");
}

TEST_F(BadServers, NoPasswordWithoutTheProtectionThatWasWished) {
    control.inet.set_protection(ProtectionWish::kRequired);
    EXPECT_EQ(control.run(u"DIR"_s), kNoProtection);
    EXPECT_EQ(server.count("USER") + server.count("PASS"), 0);
}

}  // namespace
}  // namespace pondera
