#include "site/website_deletion.h"

#include <QDir>

#include "base/files.h"
#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QDir::Filters kAll = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;

bool is_folder(const QFileInfo& entry) {
    return entry.isDir() && !entry.isSymLink();
}

/// Deletes the files of a folder, then the folder if it is empty by then.
void delete_folder(const QDir& website, const QString& name, const Steps& steps) {
    const QFileInfo folder(QDir::cleanPath(website.filePath(name)));
    if (folder.isSymLink()) QFile::remove(folder.filePath());
    if (!is_folder(folder)) return;
    int done = 0;
    const QFileInfoList entries = QDir(folder.filePath()).entryInfoList(kAll);
    for (const QFileInfo& entry : entries) {
        (void)go_on(steps, ++done, static_cast<int>(entries.size()));
        if (!is_folder(entry)) QFile::remove(entry.filePath());
    }
    QDir().rmdir(folder.filePath());
}

/// What a folder still holds, without the folders whose own content is listed.
QStringList remains_of(const QDir& website, const QString& prefix = {}) {
    QStringList names;
    for (const QFileInfo& entry : QDir(website.filePath(prefix)).entryInfoList(kAll, QDir::Name)) {
        const QString name = prefix + entry.fileName();
        if (!is_folder(entry))
            names += name;
        else if (const QStringList inner = remains_of(website, name + u'/'); !inner.isEmpty())
            names += inner;
        else
            names += name + u'/';
    }
    return names;
}

}  // namespace

FileResult<QStringList> delete_website(const QString& website_folder, const Steps& steps) {
    const QDir website(website_folder);
    if (QFileInfo(website_folder).isSymLink()) {
        if (auto removed = remove_file(website_folder); !removed) return std::unexpected(removed.error());
        return QStringList();
    }
    const auto removed = remove_file(website.filePath(editing_copy_name(kHomePage)));
    if (!removed && removed.error().number != FaultNumber::kPathNotFound) return std::unexpected(removed.error());
    QStringList folders{u"media"_s, u"."_s};
    if (!QFileInfo(website.filePath(u"media"_s)).isSymLink())
        folders = QStringList{u"media/audio"_s, u"media/video"_s, u"media/img"_s} + folders;
    for (const QString& folder : folders) delete_folder(website, folder, steps);
    if (!QFileInfo::exists(website_folder)) return QStringList();
    QStringList remains = remains_of(website);
    if (remains.isEmpty()) remains += u"./"_s;
    return remains;
}

}  // namespace pondera
