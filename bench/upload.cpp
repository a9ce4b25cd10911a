// Publishes a Website of 2,000 files to a real server on loopback by the ways of the publishing form, and mirrors the
// same files with lftp over one connection beside it.
//   pondera_bench_upload [FILES [SERVER]]     2000, vsftpd or pyftpdlib
// Files lie in $TMPDIR: with /dev/shm no disk is measured. What else the machine does changes the ratios a lot.

#include <QCoreApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <cstdio>

#include "bench/held_line.h"
#include "bench/published_shop.h"
#include "tests/publish/transfer/real_server.h"

using namespace Qt::StringLiterals;
using namespace pondera;

namespace {

constexpr qint64 kNever = 1'000'000'000;
constexpr int kRounds = 3;
constexpr int kChangedPages = 20;
constexpr auto kFarAway = std::chrono::milliseconds(20);

/// How lftp is told to do as we do. Without TLS 1.3, as with it these servers cut some uploads short, which lftp tries
/// again after half a minute.
QString protection(bool tls) {
    return tls ? u"set ftp:ssl-force yes; set ftp:ssl-protect-data yes; set ssl:priority NORMAL:-VERS-TLS1.3"_s
               : u"set ftp:ssl-allow no"_s;
}

/// Milliseconds for mirroring `folder` into a folder of the server.
qint64 mirror(const QString& host, const QString& remote, const QString& folder, const QString& settings) {
    const QString script =
        u"set ssl:verify-certificate no; set mirror:parallel-transfer-count 1; %1; "
        u"open -u anonymous,x ftp://%2; mirror -R -x \"§|ç\" %4 %3; bye"_s.arg(settings, host, remote, folder);
    QElapsedTimer time;
    time.start();
    QProcess process;
    process.start(u"lftp"_s, {u"-c"_s, script});
    const bool ended = process.waitForFinished(120'000);
    return ended && process.exitCode() == 0 ? time.elapsed() : kNever;
}

/// What the server holds in a folder, with all below it.
qsizetype files_in(const RealServer& server, const QString& folder) {
    qsizetype count = 0;
    for (QDirIterator all(server.path(folder), QDir::Files, QDirIterator::Subdirectories); all.hasNext(); ++count)
        all.next();
    return count;
}

bool went_well(const PublicationTime& time, qsizetype files) {
    if (time.failure.isEmpty() && time.files == files) return true;
    std::printf("  FAILED: %lld of %lld files %s\n", static_cast<long long>(time.files), static_cast<long long>(files),
                qPrintable(time.failure));
    return false;
}

/// All files, by turns and the best of some rounds, since the machine has other work too.
void publish_all(PublishedShop& shop, int files, RealServer::Kind kind, bool tls) {
    PublicationTime ours{.preparing = kNever, .on_line = kNever};
    qint64 plainly = kNever;
    qint64 carefully = kNever;
    for (int round = 0; round < kRounds; ++round) {
        const RealServer server(kind, tls);
        shop.forget();
        const PublicationTime time = shop.publish(server.host(), tls, PublicationMode::kTotal);
        if (!went_well(time, files)) return;
        if (files_in(server, u"Vantiles/Shop"_s) != files)
            return void(std::printf("  FAILED: the server holds others\n"));
        if (time.on_line < ours.on_line) ours = time;
        const QString root = server.remote_root() + u'/';
        plainly = std::min(plainly, mirror(server.host(), root + u"lftp"_s, shop.folder(), protection(tls)));
        carefully = std::min(carefully, mirror(server.host(), root + u"careful"_s, shop.folder(),
                                               protection(tls) + u"; set xfer:use-temp-file yes"_s));
        if (files_in(server, u"lftp"_s) < files) std::printf("  lftp did not send all files\n");
    }
    std::printf(
        "%-5s %d files: %lld ms (and %lld ms for preparing them), lftp %lld ms (%.2f), with temporary names %lld ms "
        "(%.2f)\n",
        tls ? "TLS" : "plain", files, ours.on_line, ours.preparing, plainly, double(ours.on_line) / double(plainly),
        carefully, double(ours.on_line) / double(carefully));
}

/// Commands of whole sessions, and the time with a server far away.
void publish_again(PublishedShop& shop, int files, RealServer::Kind kind) {
    const RealServer server(kind, false);
    HeldLine near(server.host(), std::chrono::milliseconds(0));
    HeldLine far(server.host(), kFarAway);
    const QString remote = server.remote_root() + u"/lftp"_s;
    shop.forget();
    if (!went_well(shop.publish(near.host(), false, PublicationMode::kTotal), files)) return;
    std::printf("all of %d files: %.2f commands a file\n", files, double(near.take_count()) / files);
    mirror(server.host(), remote, shop.folder(), protection(false));

    shop.change(kChangedPages);
    const PublicationTime time = shop.publish(far.host(), false, PublicationMode::kPartial);
    if (!went_well(time, kChangedPages)) return;
    const int ours = far.take_count();
    const qint64 lftp = mirror(far.host(), remote, shop.folder(), protection(false));
    const int theirs = far.take_count();
    const qint64 all = time.on_line + time.preparing;
    std::printf("%d changed, replies held 20 ms: %d commands (at most %d), %lld ms; lftp %d commands, %lld ms (%.2f)\n",
                kChangedPages, ours, 5 * kChangedPages + 25, all, theirs, lftp, double(all) / double(lftp));

    if (!went_well(shop.publish(near.host(), false, PublicationMode::kPartial), 0)) return;
    std::printf("nothing changed: %d commands (at most 25)\n", near.take_count());
}

}  // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const int files = count > 1 ? QString::fromLocal8Bit(arguments[1]).toInt() : 2000;
    const bool python = count > 2 && QByteArray(arguments[2]) == "pyftpdlib";
    const RealServer::Kind kind = python ? RealServer::Kind::kPyftpdlib : RealServer::Kind::kVsftpd;
    PublishedShop shop(files);
    publish_again(shop, files, kind);
    for (const bool tls : {false, true}) publish_all(shop, files, kind, tls);
    return 0;
}
