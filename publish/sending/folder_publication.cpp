#include "publish/sending/folder_publication.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>

#include <array>
#include <chrono>
#include <filesystem>
#include <tuple>

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

/// Why a drive refuses a file, in words for a person: systems have many numbers for a name that it cannot hold.
QString words_of_refusal(const QString& path, const FileError& error) {
    const bool is_special = QStringView(path).contains(u'\\') ||
                            std::ranges::any_of(path, [](QChar c) { return QStringView(u":?*\"<>|").contains(c); });
    return is_special ? u"this drive takes no names with : ? * \" < > | or \\"_s : fault_words(error);
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
        FileResult<WebsiteSurvey> survey = survey_website(roots_, website_, first_half);
        if (!survey) return std::unexpected(survey.error());
        if (survey->cancelled) return FolderPublication{.cancelled = true};
        FileResult<PublicationRecord> record =
            PublicationRecord::open(roots_.website(website_), Destination::in_folder(target_.path()));
        if (!record) return std::unexpected(record.error());
        if (auto made = make_folders(); !made) return std::unexpected(made.error());
        if (knows_no_case_) refuse_same_names(*survey, *record);
        PublicationPlan plan = plan_publication(*survey, mode, *record, present(*record), remove_deleted);
        plan.remove.removeIf([this](const QString& path) { return names_.contains(path.toLower()); });
        const FileResult<void> published = publish(plan, *record);
        // Whatever became of it, what lies there counts.
        const FileResult<void> closed = record->close();
        if (!published) return std::unexpected(published.error());
        if (!closed) return std::unexpected(closed.error());
        return result_;
    }

  private:
    FileResult<void> make_folders() {
        for (const QStringView folder : kFolders)
            if (const QString path = target_.filePath(folder.toString()); !QFileInfo(path).isDir())
                if (auto made = create_folder(path); !made) return made;
        knows_no_case_ = QFileInfo::exists(target_.filePath(u"MEDIA"_s));
        return {};
    }

    /// On a drive that takes capital letters for small ones, one of two files would replace the other: that which was
    /// published stays, else the first.
    void refuse_same_names(WebsiteSurvey& survey, const PublicationRecord& record) {
        for (const PublishedFile& file : survey.files) {
            QString& name = names_[file.path.toLower()];
            if (name.isEmpty() || record.files().contains(file.path)) name = file.path;
        }
        survey.files.removeIf([this](const PublishedFile& file) {
            const QString other = names_.value(file.path.toLower());
            if (other == file.path) return false;
            const QString why =
                u"this drive cannot hold it beside %1, which differs by capital letters only"_s.arg(other);
            result_.refused << RefusedFile{.path = file.path, .reply = why};
            return true;
        });
    }

    /// What lies in the folder; a file that is not as recorded has no size.
    [[nodiscard]] RemoteFiles present(const PublicationRecord& record) {
        RemoteFiles found;
        for (const QStringView name : kFolders) {
            const QString folder = name.toString();
            found.listed_folders << folder;
            const QDir dir(target_.filePath(folder));
            if (dir.exists()) found.folders << folder;
            for (const QFileInfo& file : dir.entryInfoList(QDir::Files | QDir::Hidden)) {
                const QString path = folder.isEmpty() ? file.fileName() : folder + u'/' + file.fileName();
                lying_.insert(path);
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

    FileResult<void> publish(const PublicationPlan& plan, PublicationRecord& record) {
        for (const QString& path : QStringList(record.unfinished().values())) QFile::remove(temporary_of(path));
        total_ = static_cast<int>(plan.send.size() + plan.remove.size());
        for (const PublishedFile& file : plan.send) {
            if (auto written = write(file, record); !written || result_.cancelled) return written;
            ++done_;
        }
        for (const QString& path : plan.remove) {
            if (!goes_on()) return {};
            ++done_;
            if (auto removed = remove_file(target_.filePath(path)); !removed) {
                result_.refused << RefusedFile{.path = path, .reply = fault_words(removed.error())};
                continue;
            }
            if (auto noted = record.forget(path); !noted) return noted;
            ++result_.removed;
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
        int parts = 0;
        const auto part_written = [&] {
            // A long file waits for the disk in parts, and the person meanwhile for none of them long.
            if (place_file_ == PlaceFile::kOnceOnDisk && ++parts > 1) flush(temporary);
            return goes_on();
        };
        const FileResult<bool> copied = copy_prepared(roots_, website_, file, temporary, part_written);
        if (!copied) return std::unexpected(copied.error());
        if (!*copied) return {};
        if (auto whole = finish(temporary, file); !whole) {
            QFile::remove(temporary);
            return whole;
        }
        if (auto placed = place(temporary, file.path); !placed) {
            QFile::remove(temporary);
            if (placed.error().number == FaultNumber::kDiskFull) return placed;
            // The drive took the bytes: what it refuses is the name.
            result_.refused << RefusedFile{.path = file.path, .reply = words_of_refusal(file.path, placed.error())};
            return record.files().contains(file.path) ? FileResult<void>() : record.forget(file.path);
        }
        ++result_.files;
        result_.bytes += file.size;
        return record.confirm(file);
    }

    /// What cannot be written is told when the file is finished.
    static void flush(const QString& temporary) {
        if (QFile written(temporary); written.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            std::ignore = write_through(written);
    }

    /// Gives a whole file its time, and brings it to the disk.
    [[nodiscard]] FileResult<void> finish(const QString& temporary, const PublishedFile& file) const {
        QFile written(temporary);
        if (!written.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
            return std::unexpected(file_error_of(written));
        written.setFileTime(file.modified, QFileDevice::FileModificationTime);
        return place_file_ == PlaceFile::kOnceOnDisk ? write_through(written) : FileResult<void>();
    }

    /// Gives a whole file its name.
    [[nodiscard]] FileResult<void> place(const QString& temporary, const QString& path) const {
        const QString target = target_.filePath(path);
        // A file that lies there by this name in other letters would keep those.
        if (knows_no_case_ && !lying_.contains(path)) QFile::remove(target);
        return renamed(temporary, target);
    }

    const Roots& roots_;
    QString website_;
    QDir target_;
    const Steps& steps_;
    PlaceFile place_file_;
    bool knows_no_case_ = false;     ///< the drive takes capital letters for small ones
    QHash<QString, QString> names_;  ///< on such a drive: the Website's files by their names in small letters
    QSet<QString> lying_;            ///< the files that lay there at the beginning
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
