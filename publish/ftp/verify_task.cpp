#include "publish/ftp/verify_task.h"

#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kMostLines = 10'001;
const QString kMedia = u"media"_s;

}  // namespace

VerifyTask::VerifyTask(QString remote_folder, QStringList names)
    : remote_folder_(std::move(remote_folder)), pending_(std::move(names)) {
    if (remote_folder_.endsWith(u'/')) remote_folder_.chop(1);
}

void VerifyTask::next_turn(CommandStack& stack, const QString& folder) {
    if (pending_.isEmpty()) return;
    QStringList way;
    if (folder != (remote_folder_.isEmpty() ? u"/"_s : remote_folder_))
        way << command_text(u"CD"_s, remote_folder_.isEmpty() ? u"/"_s : remote_folder_);
    way << command_text(u"CD"_s, kMedia);
    if (again_) {
        way << u"DIR"_s << command_text(u"CD"_s, pending_.constFirst()) << u"DIR"_s;
    } else {
        for (const QString& name : std::as_const(pending_)) {
            if (name != pending_.constFirst()) way << u"CDUP"_s;
            way << command_text(u"CD"_s, name) << u"DIR"_s;
        }
    }
    stack.push_in_running_order(way);
}

void VerifyTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    const bool dir = answer.command == u"DIR";
    const QString name = pending_.constFirst();
    const bool there = answer.folder == media() + u'/' + name;
    if (answer.fine()) {
        for (const QString& folder : {kMedia, kMedia + u'/' + name})
            if (answer.folder == remote_folder_ + u'/' + folder && !found_.folders.contains(folder))
                found_.folders << folder;
        if (!dir || !there) return;
        for (const RemoteEntry& entry : answer.listing.entries)
            if (!entry.folder) found_.sizes.insert(kMedia + u'/' + name + u'/' + entry.name, entry.size);
        give_up(name, true);
        return;
    }
    if (dir && !there) return;  // that "media" cannot be listed stands in nobody's way
    stack.clear();
    const QString refused = there || answer.folder == media() ? name : kMedia;
    if (!tried_.contains(refused)) {
        tried_ << refused;
        again_ = true;
        return;
    }
    const QStringList lost = refused == kMedia ? pending_ : QStringList(name);
    for (const QString& folder : lost) give_up(folder, !dir);
}

/// Takes a folder off the pending ones; it counts as listed, with what was found there, when it is `missing` or read.
void VerifyTask::give_up(const QString& name, bool missing) {
    if (missing) found_.listed_folders << kMedia + u'/' + name;
    pending_.removeOne(name);
    again_ = false;
}

bool is_listed_name(const QString& name) {
    static const QStringList kEndings{u".jpg"_s, u".gif"_s, u".mp3"_s, u".htm"_s};
    return !name.startsWith(u'.') && kEndings.contains(name.last(std::min<qsizetype>(name.size(), 4)).toLower());
}

QStringList listed_names(const RemoteListing& listing) {
    QStringList names;
    for (const RemoteEntry& entry : listing.entries.first(std::min(listing.entries.size(), kMostLines)))
        if (is_listed_name(entry.name)) names << entry.name;
    return names;
}

}  // namespace pondera
