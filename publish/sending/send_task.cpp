#include "publish/sending/send_task.h"

#include <QSet>

#include <algorithm>
#include <array>
#include <deque>
#include <utility>

#include "publish/transfer/remote_name.h"
#include "publish/transfer/transfer_command.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kHopelessRefusals = 5;

/// A command of a turn, and what it is for.
struct Step {
    enum class Kind {
        kOpenWebsite,     ///< "CD" to the Website's folder or one above it; the path is absolute
        kMakeAbove,       ///< "MKDIR" on the way to it; absolute
        kMakeFolder,      ///< "MKDIR" of a folder of the Website
        kEnter,           ///< "CD" into it
        kSend,            ///< a file
        kLeave,           ///< "CDUP"
        kRemove,          ///< a file that is not in the Website any more
        kRemoveLeftOver,  ///< the temporary file of one whose upload broke
    } kind;
    QString path{};  ///< in the Website
    int file = -1;   ///< its place in the plan, for kSend
};
using Kind = Step::Kind;

QString folder_of(const QString& path) {
    return path.section(u'/', 0, -2);
}

QString name_of(const QString& path) {
    return path.section(u'/', -1);
}

bool is_send(const Step& step) {
    return step.kind == Kind::kSend;
}

/// Whether a refusal means that the server takes no more of anything.
bool says_full(const QString& reply) {
    return reply.startsWith(u"552") || reply.startsWith(u"452") ||
           reply.contains(u"no space left", Qt::CaseInsensitive) ||
           reply.contains(u"quota exceeded", Qt::CaseInsensitive);
}

}  // namespace

struct SendTask::State {
    explicit State(Job the_job);

    [[nodiscard]] QString remote(const QString& path) const { return resolve_remote(base, path); }
    [[nodiscard]] const PublishedFile& file(const Step& step) const { return job.plan.send[step.file]; }
    [[nodiscard]] QString command(const Step& step) const;
    [[nodiscard]] bool has_work() const;
    [[nodiscard]] QList<Step> way_to(const QString& target, const QString& current, bool make);
    [[nodiscard]] QList<Step> media_turn(const QString& current);
    [[nodiscard]] QList<Step> file_turn(const QString& current, int room);
    [[nodiscard]] QList<Step> removal_turn(const QString& current, int room);
    [[nodiscard]] QList<Step> next_steps(const QString& current, int room);

    void push(CommandStack& stack, const QList<Step>& steps);
    void begin_next(CommandStack& stack);
    void opened(const Step& step, const CommandAnswer& answer, CommandStack& stack);
    void sent(const Step& step, const CommandAnswer& answer, CommandStack& stack);
    void removed(const Step& step, const CommandAnswer& answer, CommandStack& stack);
    void refuse(int file, const QString& reply);
    void drop_turn(CommandStack& stack, const QString& reply);
    void stop(CommandStack& stack, const QString& why);
    void noted(const FileResult<void>& result, CommandStack& stack);

    Job job;
    QString base;
    std::deque<Step> turn;  ///< what is on the stack
    QSet<QString> made;     ///< folders that are there or that the server was asked to make
    bool website_open = false;
    bool making_website = false;
    int next_file = 0;  ///< the first that was not pushed yet
    QList<Step> removals;
    QString folder;  ///< of the files of the last turn
    bool folder_takes_files = false;
    int refusals = 0;  ///< in that folder, before it took any file
    int failures = 0;  ///< in a row, for no reason that lies in the file
    SendProgress progress;
    qint64 running = 0;
    QList<RefusedFile> refused;
    QList<RefusedFile> kept;
    QString stopped_by;
};

SendTask::State::State(Job the_job)
    : job(std::move(the_job)),
      base(resolve_remote(u"/"_s, job.remote_folder)),
      made(job.folders.cbegin(), job.folders.cend()) {
    progress.files = static_cast<int>(job.plan.send.size());
    progress.bytes = job.plan.bytes();
    QSet<QString> sending;
    for (const PublishedFile& file : std::as_const(job.plan.send)) sending.insert(file.path);
    for (const QString& path : std::as_const(job.plan.remove)) removals << Step{.kind = Kind::kRemove, .path = path};
    for (const QString& path : job.record->unfinished()) {
        const bool stays = job.record->files().contains(path) && !job.plan.remove.contains(path);
        if (!stays && !sending.contains(path)) removals << Step{.kind = Kind::kRemoveLeftOver, .path = path};
    }
    std::ranges::stable_sort(removals, {}, [](const Step& step) { return folder_of(step.path); });
}

QString SendTask::State::command(const Step& step) const {
    const QString name = name_of(step.path);
    switch (step.kind) {
        case Kind::kOpenWebsite:
            return command_text(u"CD"_s, step.path);
        case Kind::kMakeAbove:
            return command_text(u"MKDIR"_s, step.path);
        case Kind::kMakeFolder:
            return command_text(u"MKDIR"_s, name);
        case Kind::kEnter:
            return command_text(u"CD"_s, name);
        case Kind::kSend:
            return command_text(u"SEND"_s, job.staging_folder + u'/' + step.path, name);
        case Kind::kLeave:
            return u"CDUP"_s;
        case Kind::kRemove:
            return command_text(u"DELETE"_s, name);
        case Kind::kRemoveLeftOver:
            return command_text(u"DELETE"_s, name_of(temporary_beside(remote(step.path))));
    }
    return {};
}

/// The steps from the current folder into one of the Website.
QList<Step> SendTask::State::way_to(const QString& target, const QString& current, bool make) {
    QList<Step> steps;
    if (current == remote(target)) return steps;
    if (current != base) steps << Step{.kind = Kind::kOpenWebsite, .path = base};
    QString path;
    for (const QString& part : target.split(u'/', Qt::SkipEmptyParts)) {
        path += (path.isEmpty() ? u""_s : u"/"_s) + part;
        if (make && !made.contains(path)) steps << Step{.kind = Kind::kMakeFolder, .path = path};
        made.insert(path);
        steps << Step{.kind = Kind::kEnter, .path = path};
    }
    return steps;
}

/// Every Website on a server has the media folders, so that pages of older publications find them.
QList<Step> SendTask::State::media_turn(const QString& current) {
    QStringList missing = {u"media/img"_s, u"media/video"_s, u"media/audio"_s};
    missing.removeIf([this](const QString& path) { return made.contains(path); });
    if (missing.isEmpty()) return {};
    QList<Step> steps = way_to(u"media"_s, current, true);
    for (const QString& path : std::as_const(missing)) {
        made.insert(path);
        steps << Step{.kind = Kind::kMakeFolder, .path = path};
    }
    steps << Step{.kind = Kind::kLeave};
    return steps;
}

QList<Step> SendTask::State::file_turn(const QString& current, int room) {
    const QList<PublishedFile>& files = job.plan.send;
    if (next_file >= files.size()) return {};
    const QString target = folder_of(files[next_file].path);
    if (std::exchange(folder, target) != target || next_file == 0) {
        folder_takes_files = false;
        refusals = 0;
    }
    QList<Step> steps = way_to(target, current, true);
    const QList<Step> way_back(target.split(u'/', Qt::SkipEmptyParts).size(), Step{.kind = Kind::kLeave});
    const qsizetype most = std::max<qsizetype>(room - way_back.size(), steps.size() + 1);
    const auto in_folder = [&] { return next_file < files.size() && folder_of(files[next_file].path) == target; };
    for (; in_folder() && steps.size() < most; ++next_file) {
        if (has_control_characters(files[next_file].path))
            refuse(next_file, u"The name of this file holds characters that no server takes."_s);
        else
            steps << Step{.kind = Kind::kSend, .path = files[next_file].path, .file = next_file};
    }
    return in_folder() ? steps : steps + way_back;
}

QList<Step> SendTask::State::removal_turn(const QString& current, int room) {
    if (removals.isEmpty()) return {};
    const QString target = folder_of(removals.first().path);
    QList<Step> steps = way_to(target, current, false);
    const qsizetype most = std::max<qsizetype>(room, steps.size() + 1);
    while (!removals.isEmpty() && folder_of(removals.first().path) == target && steps.size() < most)
        steps << removals.takeFirst();
    return steps;
}

QList<Step> SendTask::State::next_steps(const QString& current, int room) {
    QList<Step> steps = media_turn(current);
    while (steps.isEmpty() && next_file < job.plan.send.size()) steps = file_turn(current, room);
    return steps.isEmpty() ? removal_turn(current, room) : steps;
}

bool SendTask::State::has_work() const {
    const bool has_media =
        made.contains(u"media/img"_s) && made.contains(u"media/video"_s) && made.contains(u"media/audio"_s);
    return !has_media || next_file < job.plan.send.size() || !removals.isEmpty();
}

void SendTask::State::push(CommandStack& stack, const QList<Step>& steps) {
    QStringList commands;
    for (const Step& step : steps) commands << command(step);
    stack.push_in_running_order(commands);
    turn.insert(turn.begin(), steps.cbegin(), steps.cend());
}

/// What is about to be sent counts as unknown until it is confirmed.
void SendTask::State::begin_next(CommandStack& stack) {
    running = 0;
    if (!turn.empty() && is_send(turn.front())) noted(job.record->begin(turn.front().path), stack);
}

void SendTask::State::noted(const FileResult<void>& result, CommandStack& stack) {
    if (result) return;
    stop(stack, u"The record of what was published could not be written. "_s + fault_sentence(result.error()));
}

void SendTask::State::stop(CommandStack& stack, const QString& why) {
    stopped_by = why;
    turn.clear();
    stack.clear();
}

void SendTask::State::refuse(int file, const QString& reply) {
    refused << RefusedFile{.path = job.plan.send[file].path, .reply = reply};
    ++progress.files_done;
    progress.bytes_done += job.plan.send[file].size;
}

/// The rest of a turn and of its folder's files makes no sense any more.
void SendTask::State::drop_turn(CommandStack& stack, const QString& reply) {
    bool sends = false;
    for (const Step& step : turn) {
        sends = sends || is_send(step);
        if (is_send(step)) refuse(step.file, reply);
        if (step.kind == Kind::kRemove) kept << RefusedFile{.path = step.path, .reply = reply};
    }
    turn.clear();
    stack.clear();
    if (!sends) return;
    for (; next_file < job.plan.send.size() && folder_of(job.plan.send[next_file].path) == folder; ++next_file)
        refuse(next_file, reply);
}

/// Climbs until a folder on the way to the Website's is there, and makes those below it.
void SendTask::State::opened(const Step& step, const CommandAnswer& answer, CommandStack& stack) {
    if (website_open) {
        if (!answer.fine()) drop_turn(stack, answer.text);
    } else if (answer.fine() && step.path == base) {
        website_open = true;
    } else if (answer.fine()) {
        if (std::exchange(making_website, true)) return;
        QList<Step> steps;
        QString path = step.path;
        for (const QString& part : base.sliced(path.size()).split(u'/', Qt::SkipEmptyParts)) {
            path = resolve_remote(path, part);
            steps << Step{.kind = Kind::kMakeAbove, .path = path} << Step{.kind = Kind::kOpenWebsite, .path = path};
        }
        push(stack, steps);
    } else if (making_website || step.path == u"/") {
        stop(stack, u"The folder %1 could not be opened on the server: %2"_s.arg(base, answer.text));
    } else {
        push(stack, {Step{.kind = Kind::kOpenWebsite, .path = resolve_remote(step.path, u".."_s)}});
    }
}

void SendTask::State::sent(const Step& step, const CommandAnswer& answer, CommandStack& stack) {
    if (answer.fine()) {
        folder_takes_files = true;
        failures = 0;
        ++progress.files_done;
        progress.bytes_done += file(step).size;
        noted(job.record->confirm(file(step)), stack);
    } else if (says_full(answer.text)) {
        stop(stack, u"The server has no room left: "_s + answer.text);
    } else if (answer.text.startsWith(u'4') && ++failures == kHopelessRefusals) {
        // "Failure writing to local file" and the like: most servers on a full disk do not say so.
        stop(stack, u"The server takes no more files: "_s + answer.text);
    } else {
        refuse(step.file, answer.text);
        if (!folder_takes_files && ++refusals == kHopelessRefusals) drop_turn(stack, answer.text);
    }
}

void SendTask::State::removed(const Step& step, const CommandAnswer& answer, CommandStack& stack) {
    if (step.kind == Kind::kRemoveLeftOver) {
        // Most often it is not there, which is as well.
        if (!job.plan.remove.contains(step.path)) noted(job.record->forget(step.path), stack);
    } else if (answer.fine()) {
        noted(job.record->forget(step.path), stack);
    } else {
        kept << RefusedFile{.path = step.path, .reply = answer.text};
    }
}

SendTask::SendTask(Job job) : state_(std::make_unique<State>(std::move(job))) {
}

SendTask::~SendTask() = default;

void SendTask::next_turn(CommandStack& stack, const QString& folder) {
    State& state = *state_;
    state.turn.clear();
    if (!state.stopped_by.isEmpty() || !state.has_work()) return;
    if (folder == state.base) state.website_open = true;
    if (state.website_open)
        state.push(stack, state.next_steps(folder, stack.room()));
    else
        state.push(stack, {Step{.kind = Kind::kOpenWebsite, .path = state.base}});
    state.begin_next(stack);
}

void SendTask::answered(const CommandAnswer& answer, CommandStack& stack) {
    State& state = *state_;
    if (state.turn.empty()) return;
    const Step step = std::move(state.turn.front());
    state.turn.pop_front();
    switch (step.kind) {
        case Kind::kOpenWebsite:
            state.opened(step, answer, stack);
            break;
        case Kind::kEnter:
            if (!answer.fine()) state.drop_turn(stack, answer.text);
            break;
        case Kind::kSend:
            state.sent(step, answer, stack);
            break;
        case Kind::kRemove:
        case Kind::kRemoveLeftOver:
            state.removed(step, answer, stack);
            break;
        case Kind::kMakeAbove:
        case Kind::kMakeFolder:  // what counts is whether it can be entered
        case Kind::kLeave:       // where this led is seen when the next turn begins
            break;
    }
    state.begin_next(stack);
}

void SendTask::moved(qint64 bytes) {
    if (state_->turn.empty() || !is_send(state_->turn.front())) return;
    state_->running = std::min(bytes, state_->file(state_->turn.front()).size);
}

SendProgress SendTask::progress() const {
    SendProgress progress = state_->progress;
    progress.bytes_done += state_->running;
    return progress;
}

const QList<RefusedFile>& SendTask::refused() const {
    return state_->refused;
}

const QList<RefusedFile>& SendTask::not_removed() const {
    return state_->kept;
}

QString SendTask::stopped_by() const {
    return state_->stopped_by;
}

}  // namespace pondera
