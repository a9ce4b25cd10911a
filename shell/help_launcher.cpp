#include "shell/help_launcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "shell/help/help_arguments.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint kBeside{10, 10};
constexpr int kStartWithinMs = 5000;

QString viewer_in(const Roots& roots) {
    return QDir(roots.tools_folder()).filePath(u"Help.exe"_s);
}

bool is_up_to_date(const QFileInfo& placed, const QFileInfo& installed) {
    if (placed.isSymLink()) return placed.symLinkTarget() == installed.absoluteFilePath();
    return placed.exists() && placed.size() == installed.size() && placed.lastModified() >= installed.lastModified();
}

}  // namespace

HelpLauncher::~HelpLauncher() {
    viewer_.terminate();
    if (!viewer_.waitForFinished(500)) viewer_.kill();
    viewer_.waitForFinished(500);
}

bool HelpLauncher::show(const Help& help) {
    if (viewer_.state() != QProcess::NotRunning) {
        viewer_.kill();
        viewer_.waitForFinished();
    }
    viewer_.setProcessChannelMode(QProcess::ForwardedChannels);
    viewer_.start(program(), help_arguments({help.page, help.caption, kBeside}));
    return viewer_.waitForStarted(kStartWithinMs);
}

QString HelpLauncher::program() const {
    return QDir::toNativeSeparators(viewer_in(roots_));
}

bool place_help_viewer(const QString& installed, const Roots& roots) {
    const QFileInfo source(installed);
    const QString target = viewer_in(roots);
    if (is_up_to_date(QFileInfo(target), source)) return true;
    if (!QDir().mkpath(roots.tools_folder())) return false;
    QFile::remove(target);
#ifdef Q_OS_WIN
    return QFile::copy(source.absoluteFilePath(), target);
#else
    return QFile::link(source.absoluteFilePath(), target);
#endif
}

}  // namespace pondera
