#include "publish/cdrom/multimedia_drives.h"

#include <QDir>
#include <QLocale>
#include <QStorageInfo>

#include "base/roots.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

MultimediaDrive drive(const QString& name, const QStorageInfo& storage, const QString& root) {
    const QString place = QDir::toNativeSeparators(root);
    const QString free =
        QLocale(QLocale::English).formattedDataSize(storage.bytesAvailable(), 1, QLocale::DataSizeTraditionalFormat);
    return {u"%1 (%2, %3 free)"_s.arg(name, place, free), place};
}

/// Whether a person would call it a drive: a device or a share that takes files, no folder of the system's own.
bool is_drive(const QStorageInfo& storage) {
    const QByteArray device = storage.device();
    const bool holds_files = device.startsWith("/dev/") || device.startsWith("//") || device.contains(":/");
    const QFileInfo root(storage.rootPath());
    return storage.isValid() && storage.isReady() && !storage.isReadOnly() && !storage.isRoot() && holds_files &&
           root.isDir() && root.isWritable();
}

}  // namespace

QList<MultimediaDrive> multimedia_drives(const Roots& roots) {
    QList<MultimediaDrive> drives{drive(u"Hard disk"_s, QStorageInfo(roots.drive_root()), roots.drive_root())};
    for (const QStorageInfo& storage : QStorageInfo::mountedVolumes())
        if (is_drive(storage) && storage.rootPath() != drives.first().root)
            drives += drive(storage.displayName() == storage.rootPath() ? QFileInfo(storage.rootPath()).fileName()
                                                                        : storage.displayName(),
                            storage, storage.rootPath());
    return drives;
}

}  // namespace pondera
