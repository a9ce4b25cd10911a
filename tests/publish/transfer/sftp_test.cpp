#include "publish/transfer/host_key_check.h"
#include "publish/transfer/transfer_command.h"
#include "tests/publish/transfer/control.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {

class Sftp : public testing::Test {
  protected:
    /// A folder on the server, by its trouble, that holds an old page.
    void work_in(const QString& folder) {
        server.put(folder + u"/page.htm"_s, "old");
        ASSERT_EQ(control.run(u"CD /"_s + folder), kFine) << control.inet.ResponseInfo().toStdString();
    }
    int send(const QString& name = u"page.htm"_s) { return control.run(u"SEND "_s + page + u' ' + name); }
    void SetUp() override { control.meet(server.host()); }

    const TestFolder site;
    const QString page = site.put(u"page.htm"_s, QByteArray(300'000, 'p'));
    const RealServer server{RealServer::Kind::kAsyncssh};
    Control control;
};

TEST_F(Sftp, AKeyIsTrustedByThePersonAndNoOther) {
    Control stranger;
    stranger.inet.set_host(server.host());
    ASSERT_EQ(stranger.run(u"DIR"_s), kCertificateNotTrusted);
    const LineProtection first = stranger.inet.Protection();
    QProcess keygen;
    keygen.start(u"ssh-keygen"_s, {u"-l"_s, u"-f"_s, server.host_key()});
    ASSERT_TRUE(keygen.waitForFinished());
    EXPECT_EQ(shown_host_key(first.fingerprint), QString::fromLatin1(keygen.readAll()).section(u' ', 1, 1));

    stranger.inet.trust_certificate(first.fingerprint);
    EXPECT_EQ(stranger.run(u"DIR"_s), kFine);
    EXPECT_TRUE(stranger.inet.Protection().verified);

    const RealServer other(RealServer::Kind::kAsyncssh);
    stranger.inet.set_host(other.host());
    ASSERT_EQ(stranger.run(u"DIR"_s), kCertificateNotTrusted);
    EXPECT_NE(stranger.inet.Protection().fingerprint, first.fingerprint);
    EXPECT_FALSE(stranger.inet.Protection().encrypted);
}

TEST_F(Sftp, NamesAreNeverCommands) {
    work_in(u"~"_s);
    for (const QString& name : {u"a\" \"b"_s, u"back\\slash\\"_s, u"it's"_s, u" blanks "_s, u"; rm x"_s}) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(control.run(u"MKDIR "_s + quoted(name)), kFine);
        EXPECT_TRUE(QDir(server.path(u"~/"_s + name)).exists());
        EXPECT_EQ(control.run(u"RMDIR "_s + quoted(name)), kFine);
        EXPECT_EQ(send(quoted(name)), kFine);
        EXPECT_EQ(control.run(u"DELETE "_s + quoted(name)), kFine);
    }
    EXPECT_EQ(server.names(u"~"_s), QStringList(u"page.htm"_s));
    EXPECT_EQ(server.names(), QStringList(u"~"_s));
}

/// What the server cannot take leaves the old page whole, and nothing beside it.
TEST_F(Sftp, RefusedUploads) {
    work_in(u"full"_s);
    EXPECT_EQ(send(), kServerAnsweredError);
    EXPECT_TRUE(control.inet.ResponseInfo().contains(u"no space left")) << control.inet.ResponseInfo().toStdString();
    EXPECT_EQ(server.bytes(u"full/page.htm"_s), "old");
    EXPECT_EQ(server.names(u"full"_s), QStringList(u"page.htm"_s));
    EXPECT_EQ(control.inet.RemoteFolder(), u"/full"_s);
    work_in(u"locked"_s);
    EXPECT_EQ(send(u"new.htm"_s), kServerAnsweredError);
    EXPECT_EQ(server.names(u"locked"_s), QStringList(u"page.htm"_s));
    EXPECT_EQ(send(), kFine) << "a file that is there may be written";
    EXPECT_EQ(server.bytes(u"locked/page.htm"_s).size(), 300'000);
}

TEST_F(Sftp, ACutConnectionIsBuiltAgain) {
    work_in(u"cut"_s);
    control.states.clear();
    EXPECT_EQ(send(), kFine) << control.inet.ResponseInfo().toStdString();
    EXPECT_EQ(control.states.count(InternetState::kConnected), 1);
    EXPECT_EQ(server.bytes(u"cut/page.htm"_s).size(), 300'000);
    EXPECT_EQ(server.names(u"cut"_s), QStringList(u"page.htm"_s));
}

TEST_F(Sftp, EveryWaitIsBoundedAndCanBeCancelled) {
    work_in(u"mute"_s);
    Control quick({.silence = std::chrono::seconds(1), .retries = {}});
    quick.meet(server.host());
    EXPECT_EQ(quick.run(u"SEND "_s + page + u" /mute/page.htm"_s), kTimedOut);
    Control patient;
    patient.meet(server.host());
    patient.states.clear();
    patient.cancel(u"SEND "_s + page + u" /mute/page.htm"_s,
                   [&] { return patient.states.contains(InternetState::kRequestSent); });
    patient.expect_quick(u"MKDIR /y"_s);
    EXPECT_EQ(server.bytes(u"mute/page.htm"_s), "old");
}

}  // namespace pondera
