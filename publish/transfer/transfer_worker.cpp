#include "publish/transfer/transfer_worker.h"

#include <csignal>
#include <curl/curl.h>
#include <tuple>
#include <utility>

#include "publish/transfer/ftp_session.h"
#include "publish/transfer/remote_name.h"
#include "publish/transfer/sftp_session.h"

using namespace Qt::StringLiterals;

namespace pondera {

TransferWorker::TransferWorker(TransferWaits waits, JobReports reports)
    : waits_(std::move(waits)), reports_(std::move(reports)) {
    curl_global_init(CURL_GLOBAL_DEFAULT);
    thread_ = std::thread([this] { run(); });
}

TransferWorker::~TransferWorker() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        waiting_.reset();
        interruption_.raise();
    }
    changed_.notify_all();
    thread_.join();
    curl_global_cleanup();
}

void TransferWorker::start(TransferJob job) {
    const std::lock_guard lock(mutex_);
    waiting_ = std::move(job);
    changed_.notify_all();
}

void TransferWorker::cancel() {
    const std::lock_guard lock(mutex_);
    if (!std::exchange(waiting_, std::nullopt)) interruption_.raise();
}

void TransferWorker::run() {
    // A server that hangs up while it is written to must not end the program.
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipe, nullptr);

    while (true) {
        TransferJob job;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return ending_ || waiting_; });
            if (ending_ || !waiting_) break;
            job = std::move(*waiting_);
            waiting_.reset();
            interruption_.clear();
        }
        job_ = job.number;
        TransferOutcome outcome = outcome_of(job);
        reports_.done(job.number, std::exchange(states_, {}), std::move(outcome));
    }
    session_.reset();
}

void TransferWorker::renew_session(const TransferJob& job) {
    if (session_ && job.login == login_) return;
    login_ = job.login;
    folder_.clear();
    session_.reset();
    const SessionWatch watch{.state =
                                 [this](InternetState state) {
                                     states_ << state;
                                     if (state <= InternetState::kConnected) tell_states();
                                 },
                             .progress = [this](qint64 now, qint64 total) { reports_.progress(job_, now, total); },
                             .idle = [this] { tell_states(); }};
    if (login_.host.protocol == HostProtocol::kSftp)
        session_ = std::make_unique<SftpSession>(login_, waits_, interruption_, watch);
    else
        session_ = std::make_unique<FtpSession>(login_, waits_, interruption_, watch);
}

void TransferWorker::tell_states() {
    if (!states_.isEmpty()) reports_.states(job_, std::exchange(states_, {}));
}

TransferOutcome TransferWorker::outcome_of(const TransferJob& job) {
    renew_session(job);
    TransferOutcome outcome;
    const TransferResult<void> result = with_retries(job, outcome.listing);
    if (!result) {
        if (result.error().file_cut && !result.error().broken) remove_left_over(job);
        outcome.code = result.error().code;
        outcome.text = result.error().text;
    }
    outcome.remote_folder = folder_;
    outcome.protection = session_->protection();
    return outcome;
}

/// Removes what a file that was broken off left on the server: it takes the room of others.
void TransferWorker::remove_left_over(const TransferJob& job) {
    if (job.command.verb != TransferVerb::kSend || !session_->open()) return;
    std::ignore = session_->remove_file(temporary_beside(resolve_remote(folder_, job.command.remote)));
}

TransferResult<void> TransferWorker::with_retries(const TransferJob& job, RemoteListing& listing) {
    TransferResult<void> result = attempt(job, listing);
    const TransferResult<void> first = result;
    for (const std::chrono::milliseconds wait : waits_.retries) {
        // A server that was never reached may as well have been mistyped: nobody waits for that twice.
        if (result || !result.error().broken || !session_->was_open()) break;
        session_->drop();
        if (!interruption_.wait(wait)) return std::unexpected(fault(kCancelled));
        result = attempt(job, listing);
    }
    if (result || !result.error().broken) return result;
    session_->drop();
    // A full server says so behind the break, where libcurl does not listen any more. The rest may find room.
    if (first.error().file_cut && result.error().file_cut && !waits_.retries.empty())
        return std::unexpected(cut_each_time(job.command.verb == TransferVerb::kSend));
    // How the connection broke says more than how it could not be built again.
    return first;
}

TransferResult<void> TransferWorker::attempt(const TransferJob& job, RemoteListing& listing) {
    if (TransferResult<void> opened = session_->open(); !opened) return opened;
    if (folder_.isEmpty()) folder_ = session_->home();
    const QString path = job.command.verb == TransferVerb::kCdUp ? resolve_remote(folder_, u".."_s)
                                                                 : resolve_remote(folder_, job.command.remote);
    TransferResult<void> result;
    switch (job.command.verb) {
        case TransferVerb::kDir: {
            TransferResult<RemoteListing> listed = session_->list(folder_);
            if (!listed) return std::unexpected(listed.error());
            listing = std::move(*listed);
            return {};
        }
        case TransferVerb::kCd:
        case TransferVerb::kCdUp:
            result = session_->enter(path);
            if (result) folder_ = path;
            return result;
        case TransferVerb::kGet:
            return get(job, path);
        case TransferVerb::kSend: {
            OutgoingFile file(job.command.local);
            return session_->send(file, path);
        }
        case TransferVerb::kMkDir:
            return session_->make_folder(path);
        case TransferVerb::kDelete:
            return session_->remove_file(path);
        case TransferVerb::kRmDir:
            return session_->remove_folder(path);
    }
    return std::unexpected(fault(kBadCommand));
}

TransferResult<void> TransferWorker::get(const TransferJob& job, const QString& path) {
    const QString target = inside_root(job.local_root, job.command.local);
    if (target.isEmpty()) return std::unexpected(fault(kNotAllowed));
    IncomingFile file(target);
    if (const FileResult<void> opened = file.open(); !opened) return std::unexpected(local_fault(opened.error()));
    if (TransferResult<void> fetched = session_->fetch(path, file); !fetched) return fetched;
    if (const FileResult<void> finished = file.finish(); !finished)
        return std::unexpected(local_fault(finished.error()));
    return {};
}

}  // namespace pondera
