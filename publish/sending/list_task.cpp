#include "publish/sending/list_task.h"

#include <QSet>

#include <algorithm>
#include <utility>

#include "publish/transfer/remote_name.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// Whether a refusal to list means that there is nothing to list.
bool says_empty(const QString& reply) {
    return reply.contains(u"no files", Qt::CaseInsensitive) || reply.contains(u"no such file", Qt::CaseInsensitive) ||
           reply.contains(u"not found", Qt::CaseInsensitive);
}

}  // namespace

ListTask::ListTask(QString remote_folder, QStringList folders)
    : remote_folder_(std::move(remote_folder)), folders_(std::move(folders)) {
}

/// Whether a listing has shown that the folder, or one above it, is not there.
bool ListTask::is_known_missing(const QString& folder) const {
    const QStringList parts = folder.split(u'/', Qt::SkipEmptyParts);
    QString parent;
    bool missing = found_.listed_folders.contains(parent) && !found_.folders.contains(parent);
    for (const QString& part : parts) {
        const QString child = parent.isEmpty() ? part : parent + u'/' + part;
        missing = missing || (found_.listed_folders.contains(parent) && !found_.folders.contains(child));
        parent = child;
    }
    return missing;
}

void ListTask::next_turn(CommandStack& stack, const QString& folder) {
    while (!folders_.isEmpty()) {
        current_ = folders_.takeFirst();
        if (is_known_missing(current_)) {
            found_.listed_folders << current_;
            continue;
        }
        const QString path = resolve_remote(remote_folder_, current_.isEmpty() ? u"."_s : current_);
        if (folder == path)
            stack.push(u"DIR"_s);
        else
            stack.push_in_running_order({command_text(u"CD"_s, path), u"DIR"_s});
        return;
    }
}

void ListTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    const bool is_listing = answer.command == u"DIR"_s;
    if (!answer.fine()) {
        stack.clear();
        if (!is_listing || says_empty(answer.text)) found_.listed_folders << current_;
        if (is_listing) found_.folders << current_;
        return;
    }
    if (!is_listing) return;
    found_.listed_folders << current_;
    found_.folders << current_;
    const QString prefix = current_.isEmpty() ? QString() : current_ + u'/';
    for (const RemoteEntry& entry : answer.listing.entries) {
        if (entry.folder)
            found_.folders << prefix + entry.name;
        else
            found_.sizes.insert(prefix + entry.name, entry.size);
    }
}

}  // namespace pondera
