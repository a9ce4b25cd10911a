#include "bench/published_shop.h"

#include <QElapsedTimer>
#include <QEventLoop>

#include <optional>

#include "publish/ftp/connect_task.h"
#include "publish/ftp/ftp_publication.h"
#include "publish/ftp/remote_site.h"
#include "publish/transfer/curl_transfer.h"

namespace pondera {
namespace {

constexpr qsizetype kPage = 20 * 1024;
constexpr qsizetype kPicture = 200 * 1024;
constexpr int kHighestIndex = 5000;
constexpr int kPagesToAPicture = 9;

/// Runs a task to its end; the failure, empty when there is none.
QString run(CommandExecutor& executor, std::shared_ptr<RemoteTask> task) {
    std::optional<TaskEnd> end;
    QEventLoop loop;
    QObject::connect(&executor, &CommandExecutor::Ended, &loop, [&](const TaskEnd& how) {
        end = how;
        loop.quit();
    });
    executor.run(std::move(task));
    if (!end) loop.exec();
    return end->how == TaskEnd::How::kDone ? QString() : end->text + u' ' + executor.status();
}

}  // namespace

PublishedShop::PublishedShop(int files) : files_(files) {
    for (int i = 0; i < files; ++i) {
        if (i % (kPagesToAPicture + 1) != kPagesToAPicture) {
            put_page(i, 0);
            continue;
        }
        QByteArray bytes(kPicture, Qt::Uninitialized);
        for (qsizetype k = 0; k < bytes.size(); ++k) bytes[k] = static_cast<char>(k * 7 + i);
        home_.put(u"base/Pondera/Shop/media/img/picture%1.gif"_s.arg(i), bytes);
    }
}

void PublishedShop::put_page(int number, int version) {
    QByteArray page = "<HTML><BODY>\r\n<A href=\"index.htm\">Home</A>\r\n";
    // Another length as well, so that any program sees the change.
    for (int line = 0; page.size() < kPage + version; ++line)
        page += "<P>Page " + QByteArray::number(number) + ", line " + QByteArray::number(line) + "</P>\r\n";
    page.resize(kPage + version);
    home_.put(u"base/Pondera/Shop/"_s + (number == 0 ? u"index.htm"_s : u"_4_page%1.htm"_s.arg(number)), page);
}

void PublishedShop::change(int pages) {
    ++version_;
    for (int i = 0; i < pages; ++i) put_page(i * files_ / pages, version_);
}

void PublishedShop::forget() {
    QFile::remove(QDir(folder()).filePath(u"§_elenco.pnd"_s));
}

PublicationTime PublishedShop::publish(const QString& host, bool tls, PublicationMode mode) {
    CurlTransfer inet;
    inet.set_host(host);
    inet.set_user(u"anonymous"_s);
    inet.set_password(u"x"_s);
    inet.set_protection(tls ? ProtectionWish::kRequired : ProtectionWish::kNone);
    CommandExecutor executor(inet, kHighestIndex);
    PublicationTime time;
    QElapsedTimer clock;
    const auto ask = [&](const std::shared_ptr<RemoteTask>& task) {
        if (!task || !time.failure.isEmpty()) return;
        clock.start();
        time.failure = run(executor, task);
        time.on_line += clock.elapsed();
    };
    const auto prepare = [&](auto step) {
        clock.start();
        if (!step().value_or(false)) time.failure = u"the Website could not be prepared"_s;
        time.preparing += clock.elapsed();
    };

    const auto connecting = [] { return std::make_shared<ConnectTask>(*way_to_site({}, u"Shop"_s)); };
    auto connected = connecting();
    ask(connected);
    if (inet.ResponseCode() == kCertificateNotTrusted) {
        inet.trust_certificate(inet.Protection().fingerprint);
        time = {};
        ask(connected = connecting());
    }
    const QString folder = connected->remote_folder();
    const auto listing = connected->listed() ? std::optional(connected->listing()) : std::nullopt;
    auto publication = FtpPublication::begin(roots_, {.website = u"Shop"_s,
                                                      .destination = Destination::on_server(u"bench"_s, {}, folder),
                                                      .remote_folder = folder,
                                                      .mode = mode,
                                                      .present = connected->present(),
                                                      .listing = listing});
    if (!publication) return {.failure = u"no record"_s};
    FtpPublication& work = **publication;
    prepare([&] { return work.survey(); });
    ask(work.verify_task());
    ask(work.list_task());
    ask(work.fetch_task());
    prepare([&] { return work.prepare(); });
    const std::shared_ptr<SendTask> sending = work.send_task();
    ask(sending);
    if (!work.close()) time.failure = u"the record could not be written"_s;
    if (sending) time.files = sending->progress().files_done - sending->refused().size();
    return time;
}

}  // namespace pondera
