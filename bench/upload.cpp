// Uploads a Website of 2,000 files to a real server on loopback with the transfer control, and with lftp beside it.
//   pondera_bench_upload [FILES [SERVER]]     2000, vsftpd or pyftpdlib

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>

#include <algorithm>
#include <cstdio>

#include "publish/transfer/curl_transfer.h"
#include "publish/transfer/transfer_command.h"
#include "tests/publish/transfer/real_server.h"

using namespace Qt::StringLiterals;
using namespace pondera;

namespace {

QStringList make_website(const TestFolder& folder, int files) {
    QStringList names;
    for (int i = 0; i < files; ++i) {
        const bool picture = i % 10 == 9;
        QByteArray bytes(picture ? 200 * 1024 : 20 * 1024, Qt::Uninitialized);
        for (qsizetype k = 0; k < bytes.size(); ++k) bytes[k] = static_cast<char>(k * 7 + i);
        names << (picture ? u"picture%1.gif"_s : u"_4_page%1.htm"_s).arg(i);
        folder.put(names.last(), bytes);
    }
    names.sort();
    return names;
}

constexpr qint64 kNever = 1'000'000'000;

/// Milliseconds for all files; kNever when one failed.
qint64 with_control(const RealServer& server, const TestFolder& site, const QStringList& names, bool tls) {
    CurlTransfer inet;
    inet.set_host(server.host());
    inet.set_user(u"anonymous"_s);
    inet.set_password(u"x"_s);
    inet.set_protection(tls ? ProtectionWish::kRequired : ProtectionWish::kNone);
    qsizetype next = 0;
    bool trusted = false;
    bool fine = true;
    QEventLoop loop;
    QObject::connect(&inet, &InternetTransfer::StateChanged, &loop, [&](InternetState state) {
        if (state == InternetState::kError && inet.ResponseCode() == kCertificateNotTrusted && !trusted) {
            trusted = true;
            inet.trust_certificate(inet.Protection().fingerprint);
            return inet.Execute(u"MKDIR ours"_s);
        } else if (state != InternetState::kError && state != InternetState::kResponseCompleted) {
            return;
        } else if (inet.ResponseCode() != kFine) {
            std::printf("failed: %d %s\n", inet.ResponseCode(), qPrintable(inet.ResponseInfo()));
            fine = false;
            return loop.quit();
        }
        if (next == names.size()) return loop.quit();
        const QString& name = names[next++];
        inet.Execute(u"SEND "_s + quoted(site.path(name)) + u" ours/"_s + name);
    });
    QElapsedTimer time;
    time.start();
    inet.Execute(u"MKDIR ours"_s);
    loop.exec();
    return fine ? time.elapsed() : kNever;
}

qint64 with_lftp(const RealServer& server, const TestFolder& site, const QString& folder, const QString& settings) {
    const QString script =
        u"set ssl:verify-certificate no; set mirror:parallel-transfer-count 1; %1; "
        u"open -u anonymous,x ftp://%2; mkdir %3; mirror -R %4 %3; bye"_s.arg(
            settings, server.host(), server.remote_root() + u'/' + folder, site.path());
    QElapsedTimer time;
    time.start();
    QProcess process;
    process.start(u"lftp"_s, {u"-c"_s, script});
    const bool ended = process.waitForFinished(60'000);
    return ended && process.exitCode() == 0 ? time.elapsed() : kNever;
}

}  // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const int files = count > 1 ? QString::fromLocal8Bit(arguments[1]).toInt() : 2000;
    const bool python = count > 2 && QByteArray(arguments[2]) == "pyftpdlib";
    const TestFolder site;
    const QStringList names = make_website(site, files);
    for (const bool tls : {false, true}) {
        const QString protection =
            tls ? u"set ftp:ssl-force yes; set ftp:ssl-protect-data yes"_s : u"set ftp:ssl-allow no"_s;
        // By turns and the best of three, since the machine has other work too.
        qint64 ours = kNever;
        qint64 lftp = kNever;
        qint64 careful = kNever;
        for (int round = 0; round < 3; ++round) {
            const RealServer server(python ? RealServer::Kind::kPyftpdlib : RealServer::Kind::kVsftpd, tls);
            ours = std::min(ours, with_control(server, site, names, tls));
            lftp = std::min(lftp, with_lftp(server, site, u"lftp"_s, protection));
            careful = std::min(careful,
                               with_lftp(server, site, u"careful"_s, protection + u"; set xfer:use-temp-file yes"_s));
            if (server.names(u"ours"_s) != names) std::printf("not all files are there\n");
        }
        std::printf("%-5s %d files: control %lld ms, lftp %lld ms (%.2f), lftp with temporary names %lld ms (%.2f)\n",
                    tls ? "TLS" : "plain", files, ours, lftp, double(ours) / double(lftp), careful,
                    double(ours) / double(careful));
        std::fflush(stdout);
    }
    return 0;
}
