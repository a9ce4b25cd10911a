#include "publish/transfer/curl_transfer.h"

#include <QFileInfo>

#include <chrono>
#include <utility>

#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {

CurlTransfer::CurlTransfer(QObject* parent, TransferWaits waits)
    : InternetTransfer(parent), worker_(std::move(waits), reports()) {
}

CurlTransfer::~CurlTransfer() = default;

/// The worker's reports, brought to this object's thread; those of a job that was cancelled are dropped.
JobReports CurlTransfer::reports() {
    using Clock = std::chrono::steady_clock;
    constexpr auto kBetweenProgress = std::chrono::milliseconds(50);
    const auto here = [this](int job, auto tell) {
        QMetaObject::invokeMethod(
            this,
            [this, job, tell = std::move(tell)] {
                if (running_ && job == job_) tell();
            },
            Qt::QueuedConnection);
    };
    return {
        .states = [this, here](int job,
                               const QList<InternetState>& states) { here(job, [this, states] { tell(states); }); },
        .progress =
            [this, here, kBetweenProgress, last = Clock::time_point()](int job, qint64 now, qint64 total) mutable {
                if (Clock::now() - last < kBetweenProgress) return;
                last = Clock::now();
                here(job, [this, now, total] { emit Progress(now, total); });
            },
        .done =
            [this, here](int job, const QList<InternetState>& states, TransferOutcome outcome) {
                here(job, [this, job, states, outcome = std::move(outcome)] {
                    tell(states);
                    if (running_ && job == job_) finish(outcome);
                });
            },
    };
}

TransferResult<TransferJob> CurlTransfer::job_for(const QString& command) const {
    const std::expected<RemoteHost, HostFault> host = parse_host(host_);
    if (!host) return std::unexpected(fault(host.error() == HostFault::kMalformed ? kBadAddress : kUnknownScheme));
    if (has_control_characters(user_)) return std::unexpected(fault(kUserRefused));
    if (has_control_characters(password_)) return std::unexpected(fault(kPasswordRefused));
    const auto parsed = parse_command(command, [](const QString& path) { return QFileInfo(path).isFile(); });
    if (!parsed) return std::unexpected(fault(kBadCommand));
    return TransferJob{.number = job_ + 1,
                       .command = *parsed,
                       .login = {.host = *host,
                                 .user = user_,
                                 .password = password_,
                                 .protection = wish_,
                                 .trusted_certificate = trusted_},
                       .local_root = local_root_};
}

void CurlTransfer::Execute(const QString& command) {
    if (running_) return;
    TransferResult<TransferJob> job = job_for(command);
    running_ = true;
    ++job_;
    if (!job) {
        QMetaObject::invokeMethod(
            this,
            [this, number = job_, why = job.error()] {
                if (running_ && number == job_) refuse(why);
            },
            Qt::QueuedConnection);
        return;
    }
    listing_asked_ = job->command.verb == TransferVerb::kDir;
    worker_.start(std::move(*job));
}

/// Stops when a listener cancels the command or begins another.
void CurlTransfer::tell(const QList<InternetState>& states) {
    const int job = job_;
    for (const InternetState state : states)
        if (running_ && job == job_) emit StateChanged(state);
}

void CurlTransfer::refuse(const TransferFault& why) {
    TransferOutcome outcome = outcome_;
    outcome.code = why.code;
    outcome.text = why.text;
    finish(std::move(outcome));
}

void CurlTransfer::finish(TransferOutcome outcome) {
    const int job = job_;
    if (!listing_asked_ || outcome.code != kFine) outcome.listing = std::move(outcome_.listing);
    outcome_ = std::move(outcome);
    const bool answered = outcome_.code == kFine || outcome_.code == kServerAnsweredError;
    if (answered) emit StateChanged(InternetState::kResponseReceived);
    if (!running_ || job != job_) return;
    running_ = false;
    emit StateChanged(answered ? InternetState::kResponseCompleted : InternetState::kError);
}

void CurlTransfer::Cancel() {
    if (!running_) return;
    running_ = false;
    worker_.cancel();
    outcome_.code = kCancelled;
    outcome_.text = fault(kCancelled).text;
    emit StateChanged(InternetState::kDisconnecting);
    emit StateChanged(InternetState::kDisconnected);
}

}  // namespace pondera
