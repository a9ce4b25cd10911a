#include "site/folder_files.h"

#include <QDir>

#include <algorithm>
#include <array>
#include <filesystem>

#include "base/files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

namespace fs = std::filesystem;

/// Collects the files below a folder. It looks at the folder's own entries, not at what links in it lead to.
class Collection {
  public:
    Collection(const QString& folder, Extent extent)
        : folder_(folder), root_(QFileInfo(folder).canonicalFilePath() + u'/'), extent_(extent) {}

    FileResult<FolderFiles> run() {
        if (auto read = add_folder({}); !read) return std::unexpected(read.error());
        std::ranges::sort(found_.files);
        std::ranges::sort(found_.left_out);
        return std::move(found_);
    }

  private:
    /// `prefix` is empty or ends in "/".
    FileResult<void> add_folder(const QString& prefix) {
        std::error_code error;
        QStringList folders;
        const QString path = folder_ + u'/' + prefix;
        fs::directory_iterator entries(QFileInfo(path).filesystemFilePath(), error);
        for (; !error && entries != fs::directory_iterator(); entries.increment(error))
            add_entry(*entries, prefix, folders);
        if (error) return std::unexpected(file_error_of(error, QDir::cleanPath(path)));
        std::ranges::sort(folders);
        for (const QString& folder : folders)
            if (auto read = add_folder(folder); !read) return read;
        return {};
    }

    void add_entry(const fs::directory_entry& entry, const QString& prefix, QStringList& folders) {
        std::error_code error;
        const QFileInfo info(entry.path());
        const QString name = prefix + info.fileName();
        const fs::file_type type = entry.symlink_status(error).type();
        if (type == fs::file_type::directory)
            is_within_extent(name) ? folders.append(name + u'/') : found_.left_out.append(name + u'/');
        else if (info.isFile() && (type == fs::file_type::regular || leads_inside(info)))
            found_.files.append(name);
        else
            found_.left_out.append(name);
    }

    [[nodiscard]] bool is_within_extent(const QString& name) const {
        static constexpr std::array<QStringView, 4> kMedia{u"media", u"media/img", u"media/audio", u"media/video"};
        return extent_ == Extent::kWithAllFolders || std::ranges::find(kMedia, name) != kMedia.end();
    }

    [[nodiscard]] bool leads_inside(const QFileInfo& link) const { return link.canonicalFilePath().startsWith(root_); }

    QString folder_;
    QString root_;
    Extent extent_;
    FolderFiles found_;
};

}  // namespace

FileResult<FolderFiles> files_of_website(const QString& folder, Extent extent) {
    return Collection(folder, extent).run();
}

FileResult<Work> copy_files(const QString& from, const QString& to, const QStringList& files, const Steps& steps) {
    const QDir source(from);
    const QDir target(to);
    const int total = static_cast<int>(files.size());
    QString made;
    for (int done = 0; done < total; ++done) {
        if (!go_on(steps, done, total)) return Work::kCancelled;
        const QString path = target.filePath(files[done]);
        if (const QString folder = QFileInfo(path).path(); folder != made) {
            if (auto created = create_folders(folder); !created) return std::unexpected(created.error());
            made = folder;
        }
        const auto copied = QFileInfo::exists(path) ? copy_file(source.filePath(files[done]), path, IfExists::kReplace)
                                                    : copy_new_file(source.filePath(files[done]), path);
        if (!copied) return std::unexpected(copied.error());
    }
    return go_on(steps, total, total) ? Work::kDone : Work::kCancelled;
}

}  // namespace pondera
