#include "publish/sending/publication_record.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <chrono>
#include <future>
#include <utility>

#include "base/files.h"
#include "base/text_file.h"
#include "publish/sending/record_lines.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr std::chrono::milliseconds kBetweenSyncs{1'000};

QString record_path(const QString& website_folder) {
    return QDir(website_folder).filePath(u"§_elenco.pnd"_s);
}

QString journal_path(const QString& website_folder) {
    return QDir(website_folder).filePath(u"§_elencotemp.pnd"_s);
}

/// Takes in the lines of a file, which may be missing.
FileResult<void> take_in_file(const QString& path, DestinationStates& states) {
    if (!QFileInfo::exists(path)) return {};
    const FileResult<QByteArray> lines = read_file(path);
    if (!lines) return std::unexpected(lines.error());
    take_in(*lines, states);
    return {};
}

/// The states that stand in the record; what the journal tells is brought into the record first.
FileResult<DestinationStates> settled_states(const QString& folder) {
    DestinationStates states;
    if (auto read = take_in_file(record_path(folder), states); !read) return std::unexpected(read.error());
    if (!PublicationRecord::was_interrupted(folder)) return states;
    if (auto read = take_in_file(journal_path(folder), states); !read) return std::unexpected(read.error());
    if (auto written = write_file(record_path(folder), lines_of(states)); !written)
        return std::unexpected(written.error());
    if (auto removed = remove_file(journal_path(folder)); !removed) return std::unexpected(removed.error());
    return states;
}

}  // namespace

/// The file that every step of a publication is appended to.
class PublicationRecord::Journal {
  public:
    explicit Journal(const QString& path) : file_(path) { since_sync_.start(); }

    FileResult<void> write(const QByteArray& lines) {
        if (!file_.isOpen() && !file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            return std::unexpected(file_error_of(file_));
        const qint64 size = file_.size();
        if (auto written = write_whole(file_, lines); !written) {
            file_.resize(size);
            return written;
        }
        return std::chrono::milliseconds(since_sync_.elapsed()) < kBetweenSyncs ? FileResult<void>() : begin_sync();
    }

    FileResult<void> sync() {
        if (syncing_.valid()) syncing_.wait();
        return write_through(file_);
    }

  private:
    /// A disk that is busy for seconds holds up neither the sending nor the window.
    FileResult<void> begin_sync() {
        since_sync_.start();
        if (syncing_.valid()) {
            if (syncing_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return {};
            if (FileResult<void> synced = syncing_.get(); !synced) return synced;
        }
        syncing_ = std::async(std::launch::async, [path = file_.fileName()]() -> FileResult<void> {
            QFile same(path);
            if (!same.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly))
                return std::unexpected(file_error_of(same));
            return write_through(same);
        });
        return {};
    }

    QFile file_;
    QElapsedTimer since_sync_;
    std::future<FileResult<void>> syncing_;
};

PublicationRecord::PublicationRecord(QString website_folder, Destination destination)
    : folder_(std::move(website_folder)), destination_(std::move(destination)) {
}

PublicationRecord::PublicationRecord(PublicationRecord&&) noexcept = default;
PublicationRecord& PublicationRecord::operator=(PublicationRecord&&) noexcept = default;
PublicationRecord::~PublicationRecord() = default;

FileResult<PublicationRecord> PublicationRecord::open(const QString& website_folder, const Destination& destination) {
    FileResult<DestinationStates> states = settled_states(website_folder);
    if (!states) return std::unexpected(states.error());
    PublicationRecord record(website_folder, destination);
    DestinationState state = states->take(destination.key());
    record.files_ = std::move(state.files);
    record.unfinished_ = std::move(state.unfinished);
    return record;
}

FileResult<void> PublicationRecord::write(const QByteArray& line) {
    if (journal_) return journal_->write(line);
    auto journal = std::make_unique<Journal>(journal_path(folder_));
    auto written = journal->write(destination_line(destination_.key()) + line);
    if (written) journal_ = std::move(journal);
    return written;
}

FileResult<void> PublicationRecord::begin(const QString& path) {
    unfinished_.insert(path);
    return write(begun_line(destination_.key(), path));
}

FileResult<void> PublicationRecord::confirm(const PublishedFile& file) {
    files_.insert(file.path, file);
    unfinished_.remove(file.path);
    return write(file_line(destination_.key(), file));
}

FileResult<void> PublicationRecord::forget(const QString& path) {
    files_.remove(path);
    unfinished_.remove(path);
    return write(gone_line(destination_.key(), path));
}

FileResult<void> PublicationRecord::close() {
    if (!journal_) return {};
    const FileResult<void> synced = journal_->sync();
    if (!synced) return synced;
    journal_.reset();
    const FileResult<DestinationStates> states = settled_states(folder_);
    if (!states) return std::unexpected(states.error());
    return {};
}

bool PublicationRecord::was_interrupted(const QString& website_folder) {
    return QFileInfo::exists(journal_path(website_folder));
}

}  // namespace pondera
