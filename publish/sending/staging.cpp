#include <QDir>
#include <QFile>

#include <filesystem>

#include "base/files.h"
#include "base/roots.h"
#include "publish/sending/publication.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

QString staging_root(const Roots& roots, PublicationMode mode) {
    return mode == PublicationMode::kTotal ? roots.ftp_total_folder() : roots.ftp_folder();
}

/// Removes what is there by that name: a folder with all in it, a file, or a link, not what it leads to.
FileResult<void> remove_all(const QString& path) {
    std::error_code error;
    std::filesystem::remove_all(QFileInfo(path).filesystemFilePath(), error);
    if (error) return std::unexpected(file_error_of(error, path));
    return {};
}

FileResult<bool> stage_files(const Roots& roots, const QString& website, const QDir& folder,
                             const PublicationPlan& plan, const Steps& steps) {
    const int total = static_cast<int>(plan.send.size());
    QString made;
    for (int done = 0; done < total; ++done) {
        if (!go_on(steps, done, total)) return false;
        const PublishedFile& file = plan.send[done];
        const QString target = folder.filePath(file.path);
        if (const QString path = QFileInfo(target).path(); path != made) {
            if (auto created = create_folders(path); !created) return std::unexpected(created.error());
            made = path;
        }
        const auto goes_on = [&] { return go_on(steps, done, total); };
        if (auto copied = copy_prepared(roots, website, file, target, goes_on); !copied || !*copied) return copied;
    }
    return go_on(steps, total, total);
}

}  // namespace

QString staging_folder(const Roots& roots, const QString& website, PublicationMode mode) {
    return QDir(staging_root(roots, mode)).filePath(website);
}

FileResult<void> make_staging_folders(const Roots& roots) {
    for (const QString& folder : {roots.ftp_folder(), roots.ftp_total_folder()}) {
        // What is staged is deleted again: that must not happen where a link leads to.
        if (QFileInfo(folder).isSymLink())
            if (auto removed = remove_file(folder); !removed) return removed;
        if (auto made = create_folders(folder); !made) return made;
    }
    return {};
}

FileResult<bool> stage(const Roots& roots, const QString& website, PublicationMode mode, const PublicationPlan& plan,
                       const Steps& steps) {
    if (auto made = make_staging_folders(roots); !made) return std::unexpected(made.error());
    const QString folder = staging_folder(roots, website, mode);
    if (auto removed = remove_all(folder); !removed) return std::unexpected(removed.error());
    if (auto made = create_folder(folder); !made) return std::unexpected(made.error());
    const FileResult<bool> staged = stage_files(roots, website, QDir(folder), plan, steps);
    if (!staged || !*staged) clear_staging(roots, website, mode);
    return staged;
}

void clear_staging(const Roots& roots, const QString& website, PublicationMode mode) {
    // What cannot go now is told when the next staging finds it.
    [[maybe_unused]] const FileResult<void> removed = remove_all(staging_folder(roots, website, mode));
}

}  // namespace pondera
