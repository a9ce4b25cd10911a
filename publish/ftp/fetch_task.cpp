#include "publish/ftp/fetch_task.h"

#include <QDir>
#include <QFileInfo>

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

FetchTask::FetchTask(QString remote_folder, QString website_folder, QStringList paths, FetchBounds bounds)
    : remote_folder_(std::move(remote_folder)),
      website_folder_(std::move(website_folder)),
      bounds_(bounds),
      waiting_(std::move(paths)),
      count_(waiting_.size()) {
}

void FetchTask::next_turn(CommandStack& stack, const QString& folder) {
    if (waiting_.isEmpty()) return;
    QStringList commands;
    if (folder != remote_folder_) commands << command_text(u"CD"_s, remote_folder_);
    const QDir website(website_folder_);
    running_.clear();
    while (!waiting_.isEmpty() && commands.size() < stack.room()) {
        const QString path = waiting_.takeFirst();
        const QString local = website.filePath(path);
        if (const FileResult<void> made = create_folders(QFileInfo(local).path()); !made) {
            refused_ << RefusedFile{.path = path, .reply = fault_sentence(made.error())};
            continue;
        }
        running_ << path;
        commands << command_text(u"GET"_s, path, local);
    }
    if (running_.isEmpty()) return;
    stack.push_in_running_order(commands);
}

void FetchTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    if (answer.command.startsWith(u"CD "_s)) {
        if (answer.fine()) return;
        stack.clear();
        return refuse_rest(answer.text);
    }
    const QString path = running_.takeFirst();
    if (!answer.fine()) {
        refused_ << RefusedFile{.path = path, .reply = answer.text};
        return;
    }
    fetched_ << path;
    bytes_ += QFileInfo(QDir(website_folder_).filePath(path)).size();
    if (fetched_.size() < bounds_.files && bytes_ < bounds_.bytes) return;
    stack.clear();
    refuse_rest(u"The server has more than can be the pictures and sounds of a Website."_s);
}

void FetchTask::refuse_rest(const QString& why) {
    for (const QString& path : running_ + waiting_) refused_ << RefusedFile{.path = path, .reply = why};
    running_.clear();
    waiting_.clear();
}

}  // namespace pondera
