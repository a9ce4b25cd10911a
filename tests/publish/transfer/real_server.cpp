#include "tests/publish/transfer/real_server.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

namespace pondera {

static int free_port() {
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

static bool answers(int port) {
    QTcpSocket probe;
    probe.connectToHost(QHostAddress(QHostAddress::LocalHost), static_cast<quint16>(port));
    return probe.waitForConnected(200);
}

/// `command` is a program and its arguments, parted by "|".
static void run(const QString& command) {
    QStringList arguments = command.split(u'|');
    const QString program = arguments.takeFirst();
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitCode() == 0) << command.toStdString();
}

RealServer::RealServer(Kind kind, bool tls) : kind_(kind), tls_(tls), port_(free_port()) {
    QDir().mkpath(path({}));
    if (tls_)
        run(u"openssl|req|-x509|-newkey|rsa:2048|-nodes|-days|2|-subj|/CN=test server|-keyout|%1/key.pem|"
            "-out|%1/cert.pem"_s.arg(folder_.path()));
    if (kind_ == Kind::kAsyncssh) run(u"ssh-keygen|-q|-t|ed25519|-N||-f|"_s + host_key());
    QStringList arguments = command();
    const QString program = arguments.takeFirst();
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, arguments);
    EXPECT_TRUE(process_.waitForStarted()) << program.toStdString();
    for (int tries = 0; tries < 100 && !answers(port_); ++tries) QThread::msleep(50);
    EXPECT_TRUE(answers(port_)) << program.toStdString();
}

RealServer::~RealServer() {
    process_.kill();
    process_.waitForFinished();
}

QStringList RealServer::command() {
    const QString port = QString::number(port_);
    if (kind_ == Kind::kPyftpdlib)
        return {u"/usr/bin/python3"_s, QStringLiteral(PONDERA_SOURCE_DIR "/tests/publish/transfer/serve.py"), path({}),
                port, tls_ ? folder_.path() : QString()};
    if (kind_ == Kind::kAsyncssh)
        return {u"/usr/bin/python3"_s, QStringLiteral(PONDERA_SOURCE_DIR "/tests/publish/transfer/serve_sftp.py"),
                path({}), port, host_key()};
    // It runs as whoever runs the test, so it needs no root.
    QString settings =
        u"run_as_launching_user=YES\nlisten=YES\nlisten_address=127.0.0.1\nlisten_port=%1\n"
        u"background=NO\nseccomp_sandbox=NO\nanonymous_enable=YES\nlocal_enable=NO\nwrite_enable=YES\n"
        u"anon_root=%2\nanon_upload_enable=YES\nanon_mkdir_write_enable=YES\nanon_umask=022\n"
        u"anon_other_write_enable=YES\nanon_world_readable_only=NO\nno_anon_password=NO\n"_s.arg(port, path({}));
    if (tls_)
        settings +=
            u"ssl_enable=YES\nallow_anon_ssl=YES\nforce_local_logins_ssl=NO\nforce_local_data_ssl=NO\n"
            u"ssl_ciphers=HIGH\nrsa_cert_file=%1/cert.pem\nrsa_private_key_file=%1/key.pem\n"_s.arg(folder_.path({}));
    return {u"/usr/sbin/vsftpd"_s, folder_.put(u"vsftpd.conf"_s, settings.toUtf8())};
}

QString RealServer::host() const {
    return (kind_ == Kind::kAsyncssh ? u"sftp://127.0.0.1:"_s : u"127.0.0.1:"_s) + QString::number(port_);
}

QString RealServer::remote_root() const {
    return kind_ == Kind::kVsftpd ? path({}).chopped(1) : u"/"_s;
}

QStringList RealServer::names(const QString& folder) const {
    return QDir(path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

}  // namespace pondera
