#pragma once

#include <QString>
#include <QStringList>

#include "base/steps.h"

namespace pondera {

class Roots;

/// The folders of a Website's multimedia package, native. The pages' folder is named as the Website.
struct MultimediaFolders {
    QString package;    ///< "Shop Multimedia" in the root of the drive
    QString installer;  ///< "Install Shop" in it
    QString pages;      ///< "Shop" in it
};

/// `drive_root` ends in a separator or not.
[[nodiscard]] MultimediaFolders multimedia_folders(const QString& drive_root, const QString& website);

/// The label of the dialog, and the message at the end.
[[nodiscard]] QString multimedia_label(const MultimediaFolders& folders);
[[nodiscard]] QString multimedia_success(const MultimediaFolders& folders);

/// How the making of a package ended.
struct MultimediaEnd {
    QStringList faults;  ///< a message for each step that failed
    bool cancelled = false;

    [[nodiscard]] bool success() const { return faults.isEmpty() && !cancelled; }
};

/// Makes a Website's package on a drive: folders, player, installer and the published files, prepared for being read
/// from the disc. What is there is used again: files are overwritten, and files of the pages' folder that an earlier
/// making put there and the Website has no more are removed; all others stay. It goes on after a support file that
/// failed. Cancelled, it takes a package folder that is new away again.
[[nodiscard]] MultimediaEnd create_multimedia(const Roots& roots, const QString& website, const QString& drive_root,
                                              const Steps& steps = {});

}  // namespace pondera
