#include "tests/publish/transfer/real_server.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <map>

#include "publish/transfer/transfer_command.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"

namespace pondera {

using Kind = RealServer::Kind;

struct Case {
    Kind kind;
    bool tls;
    QString protocol;
};

class RealServers : public testing::TestWithParam<Case> {};

/// Files and folders go up, are listed, come back byte for byte and are removed.
TEST_P(RealServers, AWebsitesWayUpAndBack) {
    const RealServer server(GetParam().kind, GetParam().tls);
    const TestFolder site;
    const std::map<QString, QByteArray> files{{u"index.htm"_s, "<HTML>\r\nhome\n</HTML>"},
                                              {u"empty.htm"_s, ""},
                                              {u"a b;type=a%41 [1]*è.gif"_s, picture(300'000)},
                                              {u"-l"_s, "dash"}};
    const bool is_protected = !GetParam().protocol.isEmpty();
    Control control;
    control.inet.set_host(server.host());
    control.inet.set_local_root(site.path());
    if (is_protected) {
        ASSERT_EQ(control.run(u"DIR"_s), kCertificateNotTrusted);
        const LineProtection doubtful = control.inet.Protection();
        EXPECT_EQ(doubtful.holder, GetParam().tls ? u"test server"_s : QString());
        EXPECT_FALSE(doubtful.encrypted);
        control.inet.trust_certificate(doubtful.fingerprint);
        control.inet.set_protection(ProtectionWish::kRequired);
    }
    ASSERT_EQ(control.run(u"MKDIR my media"_s), kFine) << control.inet.ResponseInfo().toStdString();
    EXPECT_EQ(control.inet.Protection().encrypted, is_protected);
    EXPECT_EQ(control.run(u"CD my media"_s), kFine);
    for (int round = 0; round < 2; ++round) {
        for (const auto& [name, bytes] : files) {
            const QString command = u"SEND "_s + quoted(site.put(name, bytes)) + u' ' + quoted(name);
            ASSERT_EQ(control.run(command), kFine) << control.inet.ResponseInfo().toStdString();
            EXPECT_EQ(server.bytes(u"my media/"_s + name), bytes) << name.toStdString();
        }
        EXPECT_EQ(server.names(u"my media"_s).size(), files.size());
    }
    EXPECT_EQ(control.inet.Protection().files_encrypted, is_protected);
    EXPECT_EQ(control.inet.Protection().protocol, GetParam().protocol);

    ASSERT_EQ(control.run(u"DIR"_s), kFine) << control.inet.ResponseInfo().toStdString();
    QHash<QString, qint64> listed;
    for (const RemoteEntry& entry : control.inet.Listing().entries) listed.insert(entry.name, entry.size);
    ASSERT_EQ(listed.size(), files.size()) << control.inet.Listing().text.toStdString();
    for (const auto& [name, bytes] : files) {
        EXPECT_EQ(listed.value(name), bytes.size());
        QFile::remove(site.path(name));
        EXPECT_EQ(control.run(u"GET "_s + quoted(name) + u' ' + quoted(site.path(name))), kFine)
            << control.inet.ResponseInfo().toStdString();
        EXPECT_EQ(site.bytes(name), bytes);
        EXPECT_EQ(control.run(u"DELETE "_s + name), kFine);
    }
    EXPECT_EQ(control.run(u"CDUP"_s), kFine);
    EXPECT_EQ(control.inet.RemoteFolder(), server.remote_root());
    EXPECT_EQ(control.run(u"RMDIR my media"_s), kFine);
    EXPECT_EQ(server.names(), QStringList());
}

class RefusingServers : public testing::TestWithParam<Kind> {};

TEST_P(RefusingServers, RefusalsAreTheServersWordsAndTheSessionStands) {
    const RealServer server(GetParam());
    const TestFolder site;
    site.put(u"old.htm"_s, "old");
    Control control;
    control.meet(server.host());
    control.inet.set_local_root(site.path());
    control.states.clear();
    QDir().mkpath(server.path(u"folder/inside"_s));
    ASSERT_EQ(control.run(u"CD folder"_s), kFine);
    const QString folder = control.inet.RemoteFolder();
    for (const QString& command :
         {u"CD nowhere"_s, u"RMDIR nowhere"_s, u"DELETE nowhere"_s, u"MKDIR inside"_s,
          u"GET nowhere "_s + site.path(u"old.htm"_s), u"SEND "_s + site.path(u"old.htm"_s) + u" inside"_s}) {
        EXPECT_EQ(control.run(command), kServerAnsweredError) << command.toStdString();
        EXPECT_TRUE(control.inet.ResponseInfo().startsWith(GetParam() == Kind::kAsyncssh ? u"The" : u"5"))
            << control.inet.ResponseInfo().toStdString();
        EXPECT_EQ(control.states.last(), InternetState::kResponseCompleted);
        control.inet.Cancel();  // as the dialog does after an error reply
        EXPECT_EQ(control.states.last(), InternetState::kResponseCompleted);
    }
    EXPECT_EQ(control.inet.RemoteFolder(), folder);
    EXPECT_EQ(site.bytes(u"old.htm"_s), "old");
    EXPECT_EQ(server.names(u"folder"_s), QStringList(u"inside"_s));
    EXPECT_LE(control.states.count(InternetState::kConnected), 1);
}

INSTANTIATE_TEST_SUITE_P(All, RefusingServers, testing::Values(Kind::kVsftpd, Kind::kPyftpdlib, Kind::kAsyncssh));

INSTANTIATE_TEST_SUITE_P(All, RealServers,
                         testing::Values(Case{Kind::kVsftpd, false, {}}, Case{Kind::kVsftpd, true, u"TLSv1.2"_s},
                                         Case{Kind::kPyftpdlib, false, {}}, Case{Kind::kPyftpdlib, true, u"TLSv1.2"_s},
                                         Case{Kind::kAsyncssh, false, u"SSH"_s}));

TEST(RealServer, LoginsAndHosts) {
    const RealServer ftp(Kind::kPyftpdlib);
    const RealServer sftp(Kind::kAsyncssh);
    Control control({.connect = std::chrono::seconds(1), .retries = {}});
    control.meet(sftp.host());
    const auto login = [&](const QString& host, const QString& user = u"known"_s, const QString& word = u"secret"_s) {
        control.inet.set_host(host);
        control.inet.set_user(user);
        control.inet.set_password(word);
        return control.run(u"DIR"_s);
    };
    EXPECT_EQ(login(ftp.host()), kFine);
    EXPECT_EQ(login(ftp.host(), u"known"_s, u"wrong"_s), kPasswordRefused);
    EXPECT_EQ(login(u"sftp://"_s + ftp.host()), kTimedOut);
    for (const QString& user : {u"known"_s, u"asked"_s}) {
        EXPECT_EQ(login(sftp.host(), user), kFine) << user.toStdString();
        EXPECT_EQ(login(sftp.host(), user, u"wrong"_s), kPasswordRefused) << user.toStdString();
    }
    EXPECT_EQ(login(sftp.host(), u"keyed"_s), kLoginFailed);
    EXPECT_EQ(login(u"a\r\nb"_s), kBadAddress);
    for (const QString& protocol : {u"ftp://"_s, u"sftp://"_s}) {
        EXPECT_EQ(login(protocol + u"no-such-host.invalid"_s), kNameNotResolved) << protocol.toStdString();
        EXPECT_EQ(login(protocol + u"127.0.0.1:1"_s), kCannotConnect) << protocol.toStdString();
    }
}

/// Stands before a server, hangs up behind some of its answers, and leads to another server from then on.
class SwitchingDoor : public QTcpServer {
  public:
    SwitchingDoor(const QString& first, const QString& then, int answers) : first_(first), then_(then), left_(answers) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* const client = nextPendingConnection();
            auto* const server = new QTcpSocket(client);
            const quint16 port = (left_ > 0 ? first_ : then_).section(u':', -1).toUShort();
            server->connectToHost(QHostAddress(QHostAddress::LocalHost), port);
            connect(client, &QTcpSocket::readyRead, server, [=] { server->write(client->readAll()); });
            connect(server, &QTcpSocket::readyRead, client, [=, this] {
                if (client->state() != QTcpSocket::ConnectedState) return;
                client->write(server->readAll());
                if (left_ > 0 && --left_ == 0) client->disconnectFromHost();
            });
        });
    }

  private:
    QString first_;
    QString then_;
    int left_;
};

TEST(RealServer, AProtectedSessionThatIsCutGivesNoPasswordAwayInTheOpen) {
    const RealServer server(Kind::kPyftpdlib, true);
    Control met;
    met.meet(server.host());
    ASSERT_FALSE(met.inet.Protection().fingerprint.isEmpty());
    qsizetype asked_for_protection = 0;
    int end = kConnectionEnded;
    for (int answers = 1; end != kFine && answers < 40; ++answers) {
        const BadServer open;
        const SwitchingDoor door(server.host(), open.host(), answers);
        Control control;
        control.inet.set_host(u"127.0.0.1:%1"_s.arg(door.serverPort()));
        control.inet.trust_certificate(met.inet.Protection().fingerprint);
        end = control.run(u"DIR"_s);
        EXPECT_EQ(open.count("USER"), 0) << answers << ' ' << open.commands.join(" | ").toStdString();
        EXPECT_EQ(end == kNoProtection, open.count("AUTH") > 0) << answers;
        asked_for_protection += open.count("AUTH");
    }
    EXPECT_EQ(end, kFine);
    EXPECT_GT(asked_for_protection, 0);
}

TEST(RealServer, WhatIsFetchedStaysInTheLocalRoot) {
    const RealServer server(Kind::kPyftpdlib);
    const TestFolder site;
    const TestFolder other;
    server.put(u"a.htm"_s, "from the server");
    site.put_all(u"."_s, u"in/b.htm inside/b.htm"_s, "own");
    QFile::link(other.path(), site.path(u"out"_s));
    QFile::link(other.path(u"c.htm"_s), site.path(u"c.htm"_s));
    Control control;
    control.inet.set_host(server.host());
    EXPECT_EQ(control.run(u"GET a.htm "_s + site.path(u"a.htm"_s)), kNotAllowed);
    control.inet.set_local_root(site.path(u"in"_s));
    for (const QString& target : {u"../b.htm"_s, other.path(u"c.htm"_s), u"/etc/x"_s, u"../inside/b.htm"_s})
        EXPECT_EQ(control.run(u"GET a.htm "_s + target), kNotAllowed) << target.toStdString();
    control.inet.set_local_root(site.path());
    for (const QString& target : {u"out/c.htm"_s, u"c.htm"_s, u"in"_s})
        EXPECT_EQ(control.run(u"GET a.htm "_s + target), kNotAllowed) << target.toStdString();
    EXPECT_EQ(control.run(u"GET a.htm in/b.htm"_s), kFine);
    EXPECT_EQ(site.bytes(u"in/b.htm"_s), "from the server");
    EXPECT_TRUE(QDir(other.path()).isEmpty());
}

}  // namespace pondera
