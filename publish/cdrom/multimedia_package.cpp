#include "publish/cdrom/multimedia_package.h"

#include <QDir>

#include "base/files.h"
#include "base/roots.h"
#include "publish/cdrom/support_files.h"
#include "publish/folder/folder_summary.h"
#include "publish/sending/folder_publication.h"
#include "site/published_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFolders = 3;

/// The making of one package, step by step.
class Making {
  public:
    Making(const Roots& roots, QString website, const QString& drive_root, const Steps& steps)
        : roots_(roots),
          website_(std::move(website)),
          folders_(multimedia_folders(drive_root, website_)),
          place_file_(QDir(drive_root) == QDir(roots.drive_root()) ? PlaceFile::kAtOnce : PlaceFile::kOnceOnDisk),
          support_(support_files(website_)),
          own_steps_(kFolders + static_cast<int>(support_.size())),
          website_steps_(static_cast<int>(published_files(roots.website(website_)).value_or(QStringList()).size())),
          steps_(steps) {}

    MultimediaEnd run() {
        const bool is_new = !QFileInfo::exists(folders_.package);
        if (make_folder(folders_.package)) {
            const bool has_installer = make_folder(folders_.installer);
            if (has_installer) copy_support(PackagePart::kInstaller, folders_.installer);
            const bool has_pages = make_folder(folders_.pages);
            copy_support(PackagePart::kPackage, folders_.package);
            if (has_pages) copy_website();
        }
        if (end_.cancelled && is_new) QDir(folders_.package).removeRecursively();
        return std::move(end_);
    }

  private:
    /// Whether the folder is there to take files.
    bool make_folder(const QString& folder) {
        if (end_.cancelled) return false;
        if (!QFileInfo(folder).isDir()) {
            if (const auto made = create_folder(folder); !made) {
                end_.faults +=
                    u"Error in the creation of the folder: "_s + folder + u'\n' + fault_sentence(made.error());
                return false;
            }
        }
        step();
        return true;
    }

    void copy_support(PackagePart part, const QString& folder) {
        for (const SupportFile& file : support_) {
            if (file.part != part) continue;
            if (end_.cancelled) return;
            if (const auto copied = copy_support_file(file, roots_.tools_folder(), folder, website_); !copied)
                end_.faults +=
                    u"Error occurred in the copy of file '%1': "_s.arg(file.name()) + fault_sentence(copied.error());
            step();
        }
    }

    void copy_website() {
        if (end_.cancelled) return;
        const auto on_step = [this](int done, int total) {
            done_ = own_steps_ + (total > 0 ? website_steps_ * done / total : 0);
            return go_on(steps_, done_, own_steps_ + website_steps_);
        };
        const auto published =
            publish_to_folder(roots_, website_, folders_.package, PublicationMode::kTotal, true, on_step, place_file_);
        end_.cancelled = published && published->cancelled;
        const QString why = published ? refused_files(*published) : fault_sentence(published.error());
        if (!why.isEmpty()) end_.faults += u"Errore nella copia dei files.\n"_s + why;
    }

    void step() { end_.cancelled = !go_on(steps_, ++done_, own_steps_ + website_steps_); }

    const Roots& roots_;
    QString website_;
    MultimediaFolders folders_;
    PlaceFile place_file_;
    QList<SupportFile> support_;
    int own_steps_;
    int website_steps_;
    const Steps& steps_;
    int done_ = 0;
    MultimediaEnd end_;
};

}  // namespace

MultimediaFolders multimedia_folders(const QString& drive_root, const QString& website) {
    const QDir package(QDir(drive_root).filePath(website + u" Multimedia"_s));
    const auto native = [&](const QString& folder) { return QDir::toNativeSeparators(package.filePath(folder)); };
    return {QDir::toNativeSeparators(package.path()), native(u"Install "_s + website), native(website)};
}

QString multimedia_label(const MultimediaFolders& folders) {
    return u"The Multimedia is being created on Hard-Disk "_s + folders.package;
}

QString multimedia_success(const MultimediaFolders& folders) {
    return u"Creation successfully completed in '%1'"_s.arg(folders.package);
}

MultimediaEnd create_multimedia(const Roots& roots, const QString& website, const QString& drive_root,
                                const Steps& steps) {
    return Making(roots, website, drive_root, steps).run();
}

}  // namespace pondera
