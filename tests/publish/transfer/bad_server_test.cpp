#include "tests/publish/transfer/bad_server.h"

#include "tests/publish/transfer/control.h"
#include "tests/support/test_folder.h"

namespace pondera {

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
    ASSERT_EQ(send(), kFine);
    const qsizetype before = server.commands.size();
    EXPECT_LE(before, 14) << server.commands.join(" | ").toStdString();
    for (int i = 0; i < 50; ++i) ASSERT_EQ(send(u"page%1.htm"_s.arg(i)), kFine);
    EXPECT_EQ(server.commands.size() - before, 200) << server.commands.mid(before, 8).join(" | ").toStdString();
    EXPECT_EQ(server.sessions, 1);
    EXPECT_EQ(server.files.size(), 51);
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
    // Half a file leaves the local one as it was; it is fetched again where that may be.
    const QString get = u"GET page.htm "_s + site.put(u"copy.htm"_s, "old");
    Control once({.retries = {}});
    once.inet.set_host(server.host());
    once.inet.set_local_root(site.path());
    server.cut_after = 1'000;
    EXPECT_EQ(once.run(u"CD /www"_s), kFine);
    EXPECT_EQ(once.run(get), kConnectionEnded);
    EXPECT_EQ(site.bytes(u"copy.htm"_s), "old");
    EXPECT_EQ(QDir(site.path()).entryList(QDir::Files).size(), 2);
    server.cut_after = 1'000;
    EXPECT_EQ(control.run(get), kFine);
    EXPECT_EQ(site.bytes(u"copy.htm"_s).size(), 200'000);
    // What was refused before the break does not stand for it.
    server.instead = [first = true](const QByteArray& line) mutable -> std::optional<QByteArray> {
        if (line.startsWith("SIZE")) return "502 not here";
        return line.startsWith("RETR") && std::exchange(first, false) ? std::optional<QByteArray>("hang up")
                                                                      : std::nullopt;
    };
    EXPECT_EQ(control.run(get), kFine) << control.inet.ResponseInfo().toStdString();
}

TEST_F(BadServers, AFileThatIsTooLargeIsNotBegun) {
    server.files = {{"/home/film.mp3", "f"}};
    server.replies = {{"SIZE", "213 1073741825"}};
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
    server.replies = {{"STOR", "421 no"}};
    EXPECT_EQ(send(), kConnectionEnded);
    EXPECT_EQ(control.inet.ResponseInfo(), u"421 no"_s);
    EXPECT_EQ(server.sessions, 4);
    server.replies = {{"EPSV", "500 what?"}, {"PASV", "227 entering (127,0,0,1,0,1)"}};
    EXPECT_EQ(send(), kConnectionEnded);
    EXPECT_EQ(control.inet.ResponseInfo(), u"The server answers, but no connection for files can be made."_s);
}

TEST_F(BadServers, AFileThatIsBrokenOffEachTimeIsRefusedAndLeavesNothing) {
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        if (line.startsWith("STOR")) server.cut_after = 100'000;
        return std::nullopt;
    };
    EXPECT_EQ(send(), kServerAnsweredError);
    EXPECT_TRUE(control.inet.ResponseInfo().startsWith(u"There may be no room left"_s));
    EXPECT_EQ(server.count("STOR"), 4);
    EXPECT_EQ(server.count("DELE"), 1);
    EXPECT_EQ(control.run(u"MKDIR x"_s), kFine);
}

/// A verb, the reply to it, and whether "SEND" does well; the old page is whole whenever the new one is not there.
TEST_F(BadServers, RefusedUploads) {
    struct Row {
        QByteArray verb, reply;
        bool fine;
    };
    for (const Row& row : {Row{"STOR /home/pnd", "552 full", false}, Row{"STOR", "550 no", false},
                           Row{"STOR /home/pnd", "553 no such names", true}, Row{"EPSV", "500 what?", true},
                           Row{"FEAT", "500 what?", true}, Row{"RNFR", "550 no renaming", true},
                           Row{"RNTO", "550 no renaming", true}, Row{"RNTO /home/page", "550 not so", true}}) {
        SCOPED_TRACE((row.verb + row.reply).toStdString());
        server.files = {{"/home/page.htm", "old"}};
        server.replies = {{row.verb, row.reply}};
        Control fresh;
        fresh.inet.set_host(server.host());
        EXPECT_EQ(fresh.run(u"SEND "_s + page + u" page.htm"_s), row.fine ? kFine : kServerAnsweredError);
        EXPECT_EQ(server.files.size(), 1);
        EXPECT_EQ(server.files.value("/home/page.htm").size(), row.fine ? 200'000 : 3);
        EXPECT_EQ(fresh.inet.ResponseInfo().startsWith(u'5'), !row.fine);
    }
}

TEST_F(BadServers, AFileThatChangesIsNotPublished) {
    server.files = {{"/home/page.htm", "old"}};
    for (const bool grows : {true, false}) {
        server.instead = [&](const QByteArray& line) {
            if (line.startsWith("STOR")) QFile::resize(page, grows ? 300'000 : 1'000);
            return std::optional<QByteArray>();
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
        patient.cancel(u"SEND "_s + page + u" page.htm"_s, [&] { return reached; });
        mute.instead = nullptr;
        mute.silent_after_upload = false;
        mute.welcome = "220 ready\r\n";
        patient.expect_quick(u"MKDIR y"_s);
    }
}

TEST_F(BadServers, RepliesWithoutEnd) {
    server.replies = {{"MKD", QByteArray("250-on and on\r\n").repeated(200'000)}};
    EXPECT_EQ(control.run(u"MKDIR x"_s), kConnectionEnded);
    server.replies.clear();
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
}

TEST_F(BadServers, NoPasswordWithoutTheProtectionThatWasWished) {
    control.inet.set_protection(ProtectionWish::kRequired);
    EXPECT_EQ(control.run(u"DIR"_s), kNoProtection);
    EXPECT_EQ(server.count("USER") + server.count("PASS"), 0);
}

}  // namespace pondera
