#include "shell/pages/folder_watch.h"

namespace pondera {

using namespace std::chrono_literals;

namespace {

constexpr auto kPause = 300ms;

}  // namespace

FolderWatch::FolderWatch(QObject* parent) : QObject(parent) {
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &pause_, qOverload<>(&QTimer::start));
    connect(&pause_, &QTimer::timeout, this, &FolderWatch::changed);
}

void FolderWatch::watch(const QString& folder) {
    if (const QStringList before = watcher_.directories(); !before.isEmpty()) watcher_.removePaths(before);
    pause_.stop();
    if (!folder.isEmpty()) watcher_.addPath(folder);
}

}  // namespace pondera
