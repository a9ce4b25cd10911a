#include "publish/ftp/fetch_task.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

#include "base/files.h"
#include "publish/ftp/verify_task.h"
#include "publish/transfer/remote_name.h"
#include "publish/transfer/transfer_command.h"
#include "site/published_files.h"

using namespace Qt::StringLiterals;

namespace pondera {

QStringList files_to_fetch(const RemoteFiles& found, const QString& website_folder, const PublicationRecord& record) {
    const QDir website(website_folder);
    QStringList paths;
    for (auto file = found.sizes.begin(); file != found.sizes.end(); ++file) {
        const QString& path = file.key();
        const QString name = path.section(u'/', -1);
        const QFileInfo local(website.filePath(path));
        if (is_listed_name(name) && is_plain_name(name) && is_published(name) && !local.exists() &&
            !local.isSymLink() && !record.files().contains(path))
            paths << path;
    }
    paths.sort();
    return paths;
}

FetchTask::FetchTask(QString remote_folder, QString website_folder, QStringList paths)
    : remote_folder_(std::move(remote_folder)),
      website_folder_(std::move(website_folder)),
      waiting_(std::move(paths)),
      count_(waiting_.size()) {
}

void FetchTask::next_turn(CommandStack& stack, const QString& folder) {
    if (waiting_.isEmpty()) return;
    QStringList commands;
    if (folder != remote_folder_) commands << command_text(u"CD"_s, remote_folder_);
    const QDir website(website_folder_);
    running_ = waiting_.first(std::min<qsizetype>(waiting_.size(), stack.room() - commands.size()));
    waiting_.remove(0, running_.size());
    for (const QString& path : std::as_const(running_)) {
        const QString local = website.filePath(path);
        // Where the folder cannot be made the file's own fault tells why.
        (void)create_folders(QFileInfo(local).path());
        commands << command_text(u"GET"_s, path, local);
    }
    stack.push_in_running_order(commands);
}

void FetchTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    if (answer.command.startsWith(u"CD "_s)) {
        if (answer.fine()) return;
        stack.clear();
        for (const QString& path : running_ + waiting_) refused_ << RefusedFile{.path = path, .reply = answer.text};
        running_.clear();
        waiting_.clear();
        return;
    }
    const QString path = running_.takeFirst();
    if (answer.fine())
        fetched_ << path;
    else
        refused_ << RefusedFile{.path = path, .reply = answer.text};
}

}  // namespace pondera
