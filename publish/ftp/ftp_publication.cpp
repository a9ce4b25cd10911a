#include "publish/ftp/ftp_publication.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <utility>

#include "base/roots.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// A file of the Website as it would be sent.
FileResult<PublishedFile> published_file(const Roots& roots, const QString& website, const QString& path) {
    const FileResult<QByteArray> bytes = prepared_file(roots, website, path);
    if (!bytes) return std::unexpected(bytes.error());
    return PublishedFile{.path = path,
                         .size = bytes->size(),
                         .modified = QFileInfo(QDir(roots.website(website)).filePath(path)).lastModified().toUTC(),
                         .checksum = QCryptographicHash::hash(*bytes, QCryptographicHash::Sha256).toHex()};
}

QString folder_of(const QString& path) {
    return path.section(u'/', 0, -2);
}

}  // namespace

FtpPublication::FtpPublication(const Roots& roots, Order order, PublicationRecord record)
    : roots_(roots),
      order_(std::move(order)),
      folder_(roots.website(order_.website)),
      staged_as_(is_of_all() ? order_.mode : PublicationMode::kPartial),
      record_(std::move(record)) {
    staging_ = pondera::staging_folder(roots_, order_.website, staged_as_);
}

FileResult<std::unique_ptr<FtpPublication>> FtpPublication::begin(const Roots& roots, Order order) {
    FileResult<PublicationRecord> record = PublicationRecord::open(roots.website(order.website), order.destination);
    if (!record) return std::unexpected(record.error());
    order.remote_folder = resolve_remote(u"/"_s, order.remote_folder);  // as the control will tell it
    return std::unique_ptr<FtpPublication>(new FtpPublication(roots, std::move(order), std::move(*record)));
}

FileResult<bool> FtpPublication::survey(const Steps& steps) {
    if (!is_of_all()) {
        FileResult<PublishedFile> file = published_file(roots_, order_.website, order_.only);
        if (!file) return std::unexpected(file.error());
        survey_.files = {std::move(*file)};
        return true;
    }
    FileResult<WebsiteSurvey> surveyed = survey_website(roots_, order_.website, steps);
    if (!surveyed) return std::unexpected(surveyed.error());
    survey_ = std::move(*surveyed);
    return !survey_.cancelled;
}

/// The folders that the plan has to know of.
QStringList FtpPublication::folders() const {
    QSet<QString> folders;
    for (const PublishedFile& file : survey_.files) folders.insert(folder_of(file.path));
    for (const QString& path : record_.files().keys() + record_.unfinished().values()) folders.insert(folder_of(path));
    QStringList sorted(folders.cbegin(), folders.cend());
    sorted.sort();
    return sorted;
}

std::shared_ptr<VerifyTask> FtpPublication::verify_task() {
    if (!is_of_all()) return nullptr;
    if (!order_.present) {
        remote_.listed_folders = folders();
        return nullptr;
    }
    if (order_.listing) {
        remote_.listed_folders << QString();
        remote_.folders << QString();
        for (const RemoteEntry& entry : std::as_const(order_.listing->entries)) {
            if (entry.folder)
                remote_.folders << entry.name;
            else
                remote_.sizes.insert(entry.name, entry.size);
        }
    }
    return verify_ = std::make_shared<VerifyTask>(order_.remote_folder, order_.verified);
}

void FtpPublication::merge(const RemoteFiles& found) {
    remote_.sizes.insert(found.sizes);
    remote_.listed_folders += found.listed_folders;
    remote_.folders += found.folders;
}

std::shared_ptr<ListTask> FtpPublication::list_task() {
    if (!is_of_all()) return nullptr;
    if (verify_) merge(verify_->found());
    QStringList missing = folders();
    missing.removeIf([this](const QString& folder) { return remote_.listed_folders.contains(folder); });
    if (missing.isEmpty()) return nullptr;
    return list_ = std::make_shared<ListTask>(order_.remote_folder, missing);
}

std::shared_ptr<FetchTask> FtpPublication::fetch_task() {
    if (list_) merge(list_->found());
    if (!verify_) return nullptr;
    const QStringList paths = files_to_fetch(verify_->found(), folder_, record_);
    if (paths.isEmpty()) return nullptr;
    return fetch_ = std::make_shared<FetchTask>(order_.remote_folder, folder_, paths);
}

/// What was fetched is known to be on the server.
FileResult<void> FtpPublication::take_in_fetched() {
    if (!fetch_) return {};
    for (const QString& path : fetch_->fetched()) {
        const FileResult<PublishedFile> file = published_file(roots_, order_.website, path);
        if (!file) return std::unexpected(file.error());
        if (FileResult<void> confirmed = record_.confirm(*file); !confirmed) return confirmed;
    }
    return {};
}

FileResult<bool> FtpPublication::prepare(const Steps& steps) {
    const bool single = !is_of_all();
    plan_ = plan_publication(survey_, single ? PublicationMode::kTotal : order_.mode, record_, remote_,
                             order_.remove_deleted && !single);
    // Behind the plan: the survey, which is older, would take what was fetched for deleted.
    if (const FileResult<void> taken = take_in_fetched(); !taken) return std::unexpected(taken.error());
    if (plan_.send.isEmpty()) return true;
    return stage(roots_, order_.website, staged_as_, plan_, steps);
}

std::shared_ptr<SendTask> FtpPublication::send_task() {
    // What a broken upload left is tidied up even when there is nothing to send.
    const bool tidy = record_.unfinished().isEmpty() || !is_of_all();
    if (plan_.send.isEmpty() && plan_.remove.isEmpty() && tidy) return nullptr;
    QStringList there = remote_.folders;
    // A media folder that nothing was ever put into is not asked about; an earlier publication has made it.
    if (!record_.files().isEmpty() && remote_.folders.contains(u"media"_s))
        for (const QString& folder : {u"media/img"_s, u"media/video"_s, u"media/audio"_s})
            if (!remote_.listed_folders.contains(folder)) there << folder;
    return send_ = std::make_shared<SendTask>(SendTask::Job{.staging_folder = staging_,
                                                            .remote_folder = order_.remote_folder,
                                                            .plan = plan_,
                                                            .record = &record_,
                                                            .folders = there});
}

FileResult<void> FtpPublication::close() {
    if (std::exchange(closed_, true)) return {};
    // What a program that was ended left in the other folder goes as well.
    for (const PublicationMode mode : {PublicationMode::kTotal, PublicationMode::kPartial})
        clear_staging(roots_, order_.website, mode);
    return record_.close();
}

}  // namespace pondera
