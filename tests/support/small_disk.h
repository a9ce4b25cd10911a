#pragma once

#include <QTemporaryDir>

#include <sys/mount.h>

namespace pondera {

/// A file system of one megabyte. Mounting needs root.
class SmallDisk {
  public:
    SmallDisk() : mounted_(mount("tmpfs", folder_.path().toUtf8().constData(), "tmpfs", 0, "size=1m") == 0) {}
    ~SmallDisk() {
        if (mounted_) umount(folder_.path().toUtf8().constData());
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    [[nodiscard]] bool mounted() const { return mounted_; }
    [[nodiscard]] bool make_read_only() const {
        return mount(nullptr, folder_.path().toUtf8().constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }
    [[nodiscard]] QString file(const QString& name) const { return folder_.filePath(name); }

  private:
    QTemporaryDir folder_;
    bool mounted_;
};

}  // namespace pondera
