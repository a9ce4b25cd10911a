#include "publish/ftp/empty_task.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

#include "publish/sending/publication_record.h"
#include "publish/transfer/remote_name.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kDeepest = 64;  // a server may tell of folders in folders without end

/// The temporary names of broken uploads, which a listing's entries leave out.
QStringList left_behind(const RemoteListing& listing) {
    static const QRegularExpression kTemporary(u"[ ;](pnd-[0-9a-f]{16}\\.part)$"_s,
                                               QRegularExpression::MultilineOption);
    QStringList names;
    for (const QString& line : listing.text.split(u"\r\n"_s))
        if (const auto match = kTemporary.match(line); match.hasMatch()) names << match.captured(1);
    return names;
}

}  // namespace

EmptyTask::EmptyTask(QString remote_folder, PublicationRecord* record, Spared spared)
    : remote_folder_(std::move(remote_folder)), record_(record), spared_(std::move(spared)), levels_{{.path = {}}} {
}

QString EmptyTask::absolute(const QString& path) const {
    return resolve_remote(remote_folder_, path);
}

QString EmptyTask::below(const QString& name) const {
    const QString& path = levels_.constLast().path;
    return path.isEmpty() ? name : path + u'/' + name;
}

void EmptyTask::next_turn(CommandStack& stack, const QString& folder) {
    while (!levels_.isEmpty() && stopped_by_.isEmpty()) {
        Level& level = levels_.last();
        const QString path = absolute(level.path);
        QStringList commands;
        if (folder != path) commands << command_text(u"CD"_s, path);
        if (!level.listed) return stack.push_in_running_order(commands << u"DIR"_s);
        if (!level.files.isEmpty()) {
            deleting_ = level.files.first(std::min<qsizetype>(level.files.size(), stack.room() - commands.size()));
            level.files.remove(0, deleting_.size());
            for (const QString& name : std::as_const(deleting_)) commands << command_text(u"DELETE"_s, name);
            return stack.push_in_running_order(commands);
        }
        if (!level.folders.isEmpty()) {
            const QString name = level.folders.takeFirst();
            if (levels_.size() >= kDeepest)
                keep(below(name) + u'/', u"Too many folders in folders."_s);
            else
                levels_ << Level{.path = below(name)};
            continue;
        }
        leave(stack, folder);
        if (!stack.empty()) return;
    }
}

/// Goes up from a folder that is done, and removes it when nothing stayed in it.
void EmptyTask::leave(CommandStack& stack, const QString& folder) {
    const Level done = levels_.takeLast();
    if (levels_.isEmpty()) return;
    if (done.stays) {
        levels_.last().stays = true;
        return;
    }
    leaving_ = done.path;
    const QString parent = absolute(levels_.constLast().path);
    QStringList commands;
    if (folder == absolute(done.path))
        commands << u"CDUP"_s;
    else if (folder != parent)
        commands << command_text(u"CD"_s, parent);
    stack.push_in_running_order(commands << command_text(u"RMDIR"_s, done.path.section(u'/', -1)));
}

void EmptyTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    const QString verb = answer.command.section(u' ', 0, 0);
    if (verb == u"RMDIR") {
        if (!answer.fine()) keep(leaving_ + u'/', answer.text);
    } else if (verb == u"DELETE") {
        const QString path = below(deleting_.takeFirst());
        if (!answer.fine()) return keep(path, answer.text);
        ++deleted_;
        forget(path, stack);
    } else if (!answer.fine()) {
        // Nothing is deleted where one did not get to.
        stack.clear();
        Level& level = levels_.last();
        level.files.clear();
        level.folders.clear();
        level.listed = true;
        keep(level.path + u'/', answer.text);
    } else if (verb == u"DIR") {
        look_into(answer);
    }
}

void EmptyTask::look_into(const CommandAnswer& answer) {
    Level& level = levels_.last();
    level.listed = true;
    for (const RemoteEntry& entry : answer.listing.entries) {
        if (spared_ && spared_(entry))
            level.stays = true;
        else
            (entry.folder ? level.folders : level.files) << entry.name;
    }
    level.files += left_behind(answer.listing);
}

void EmptyTask::keep(const QString& path, const QString& reply) {
    levels_.last().stays = true;
    kept_ << RefusedFile{.path = path, .reply = reply};
}

void EmptyTask::forget(const QString& path, CommandStack& stack) {
    if (record_ == nullptr) return;
    if (!record_->files().contains(path) && !record_->unfinished().contains(path)) return;
    const FileResult<void> forgotten = record_->forget(path);
    if (forgotten) return;
    stopped_by_ = fault_sentence(forgotten.error());
    stack.clear();
}

}  // namespace pondera
