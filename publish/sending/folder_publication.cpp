#include "publish/sending/folder_publication.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include <array>
#include <chrono>
#include <filesystem>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"
#include "publish/sending/checksum.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// Memory sticks keep times in steps of two seconds.
constexpr std::chrono::seconds kTimeStep{2};

constexpr qint64 kChunk = 1 << 20;

constexpr std::array<QStringView, 5> kFolders{u"", u"media", u"media/img", u"media/video", u"media/audio"};

FileResult<void> renamed(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    if (error) return std::unexpected(file_error_of(error, to));
    return {};
}

bool holds(const QString& path, const QByteArray& checksum) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    Checksum found;
    while (!file.atEnd() && file.error() == QFileDevice::NoError) found.add(file.read(kChunk));
    return found.result() == checksum;
}

/// Whether a path, links on the way resolved, is that of a folder or leads into it. Nothing lies in what is missing.
bool lies_in(const QString& path, const QString& folder) {
    const QString real_path = QFileInfo(path).canonicalFilePath();
    const QString real_folder = QFileInfo(folder).canonicalFilePath();
    return !real_path.isEmpty() && !real_folder.isEmpty() &&
           (real_path + u'/').startsWith(real_folder + u'/', Qt::CaseInsensitive);
}

/// One publication to a folder.
class Publication {
  public:
    Publication(const Roots& roots, QString website, const QString& folder, const Steps& steps, PlaceFile place_file)
        : roots_(roots),
          website_(std::move(website)),
          target_(QDir(folder).filePath(website_)),
          steps_(steps),
          place_file_(place_file) {}

    FileResult<FolderPublication> run(PublicationMode mode, bool remove_deleted) {
        const Steps first_half = [this](int done, int total) {
            files_ = total;
            return go_on(steps_, done, 2 * total);
        };
        const FileResult<WebsiteSurvey> survey = survey_website(roots_, website_, first_half);
        if (!survey) return std::unexpected(survey.error());
        if (survey->cancelled) return FolderPublication{.cancelled = true};
        FileResult<PublicationRecord> record =
            PublicationRecord::open(roots_.website(website_), Destination::in_folder(target_.path()));
        if (!record) return std::unexpected(record.error());
        const PublicationPlan plan = plan_publication(*survey, mode, *record, present(*record), remove_deleted);
        const FileResult<void> published = publish(*survey, plan, *record);
        // Whatever became of it, what lies there counts.
        const FileResult<void> closed = record->close();
        if (!published) return std::unexpected(published.error());
        if (!closed) return std::unexpected(closed.error());
        return result_;
    }

  private:
    /// What lies in the folder; a file that is not as recorded has no size.
    [[nodiscard]] RemoteFiles present(const PublicationRecord& record) const {
        RemoteFiles found;
        for (const QStringView name : kFolders) {
            const QString folder = name.toString();
            found.listed_folders << folder;
            const QDir dir(target_.filePath(folder));
            if (dir.exists()) found.folders << folder;
            for (const QFileInfo& file : dir.entryInfoList(QDir::Files | QDir::Hidden)) {
                const QString path = folder.isEmpty() ? file.fileName() : folder + u'/' + file.fileName();
                if (is_as_recorded(file, record.files().value(path))) found.sizes.insert(path, file.size());
            }
        }
        return found;
    }

    /// Two memory sticks may go by the same path: a file of another time is looked into.
    static bool is_as_recorded(const QFileInfo& file, const PublishedFile& known) {
        if (known.path.isEmpty()) return true;
        if (file.size() != known.size) return false;
        const std::chrono::milliseconds apart(known.modified.msecsTo(file.lastModified()));
        return std::chrono::abs(apart) <= kTimeStep || holds(file.filePath(), known.checksum);
    }

    FileResult<void> publish(const WebsiteSurvey& survey, const PublicationPlan& plan, PublicationRecord& record) {
        for (const QStringView folder : kFolders)
            if (const QString path = target_.filePath(folder.toString()); !QFileInfo(path).isDir())
                if (auto made = create_folder(path); !made) return made;
        if (auto distinct = check_names(survey); !distinct) return distinct;
        for (const QString& path : QStringList(record.unfinished().values())) QFile::remove(temporary_of(path));
        total_ = static_cast<int>(plan.send.size() + plan.remove.size());
        for (const PublishedFile& file : plan.send) {
            if (auto written = write(file, record); !written || result_.cancelled) return written;
            ++done_;
        }
        for (const QString& path : plan.remove) {
            if (!goes_on()) return {};
            if (auto removed = remove_file(target_.filePath(path)); !removed) return removed;
            if (auto noted = record.forget(path); !noted) return noted;
            ++result_.removed;
            ++done_;
        }
        return {};
    }

    /// On a medium that takes capital letters for small ones, one of two files would replace the other.
    [[nodiscard]] FileResult<void> check_names(const WebsiteSurvey& survey) const {
        if (!QFileInfo::exists(target_.filePath(u"MEDIA"_s))) return {};
        QSet<QString> names;
        for (const PublishedFile& file : survey.files) {
            if (names.contains(file.path.toLower()))
                return std::unexpected(FileError{
                    .number = FaultNumber::kUnexpected,
                    .path = QDir::toNativeSeparators(file.path),
                    .reason = u"another file has this name in other letters, and this drive cannot hold both"_s});
            names.insert(file.path.toLower());
        }
        return {};
    }

    [[nodiscard]] QString temporary_of(const QString& path) const { return temporary_beside(target_.filePath(path)); }

    bool goes_on() {
        result_.cancelled = result_.cancelled || !go_on(steps_, files_ + done_, files_ + total_);
        return !result_.cancelled;
    }

    FileResult<void> write(const PublishedFile& file, PublicationRecord& record) {
        if (!goes_on()) return {};
        if (auto begun = record.begin(file.path); !begun) return begun;
        const QString temporary = temporary_of(file.path);
        QFile::remove(temporary);
        const FileResult<bool> copied = copy_prepared(roots_, website_, file, temporary, [this] { return goes_on(); });
        if (!copied) return std::unexpected(copied.error());
        if (!*copied) return {};
        if (auto placed = place(temporary, file); !placed) {
            QFile::remove(temporary);
            return placed;
        }
        ++result_.files;
        result_.bytes += file.size;
        return record.confirm(file);
    }

    /// Gives a whole file its time and its name.
    [[nodiscard]] FileResult<void> place(const QString& temporary, const PublishedFile& file) const {
        QFile written(temporary);
        if (!written.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            return std::unexpected(file_error_of(written));
        written.setFileTime(file.modified, QFileDevice::FileModificationTime);
        if (place_file_ == PlaceFile::kOnceOnDisk)
            if (auto on_disk = write_through(written); !on_disk) return on_disk;
        written.close();
        return renamed(temporary, target_.filePath(file.path));
    }

    const Roots& roots_;
    QString website_;
    QDir target_;
    const Steps& steps_;
    PlaceFile place_file_;
    int files_ = 0;
    int done_ = 0;
    int total_ = 0;
    FolderPublication result_;
};

}  // namespace

QString refusal_of_folder(const Roots& roots, const QString& website, const QString& folder) {
    if (!QDir::isAbsolutePath(folder)) return u"Choose the folder to publish to."_s;
    const QFileInfo info(folder);
    const QString shown = QDir::toNativeSeparators(QDir::cleanPath(folder));
    if (!info.exists()) return u"The folder %1 does not exist."_s.arg(shown);
    if (!info.isDir()) return u"%1 is a file, not a folder."_s.arg(shown);
    const QString place = QDir(folder).filePath(website);
    if (lies_in(folder, roots.websites()) || lies_in(place, roots.websites()) || lies_in(roots.websites(), place))
        return u"Choose a place outside of the folder of your Websites."_s;
    if (!info.isWritable()) return u"The folder %1 cannot be written to."_s.arg(shown);
    return {};
}

FileResult<FolderPublication> publish_to_folder(const Roots& roots, const QString& website, const QString& folder,
                                                PublicationMode mode, bool remove_deleted, const Steps& steps,
                                                PlaceFile place_file) {
    return Publication(roots, website, folder, steps, place_file).run(mode, remove_deleted);
}

}  // namespace pondera
