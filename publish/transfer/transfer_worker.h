#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "publish/transfer/remote_session.h"
#include "publish/transfer/transfer_command.h"

namespace pondera {

/// A command with all that it needs.
struct TransferJob {
    int number = 0;
    TransferCommand command;
    TransferLogin login;
    QString local_root;
};

/// What the worker tells of a job; called on the worker's thread. States come in their order, several at once when they
/// follow each other quickly: to wake the window for each would cost more than a small file.
struct JobReports {
    std::function<void(int job, QList<InternetState>)> states;
    std::function<void(int job, qint64 now, qint64 total)> progress;
    std::function<void(int job, QList<InternetState>, TransferOutcome)> done;
};

/// Does the jobs on a thread of its own, one after the other, and keeps the session between them.
///
/// Why a thread: libcurl waits in places for the server without giving the caller a turn (a TLS handshake, the reply
/// after a file's last byte), seconds long with a slow server. In the window's thread each of them would freeze it.
class TransferWorker {
  public:
    TransferWorker(TransferWaits waits, JobReports reports);
    ~TransferWorker();
    TransferWorker(const TransferWorker&) = delete;
    TransferWorker& operator=(const TransferWorker&) = delete;

    /// Does `job` as soon as the one before has ended.
    void start(TransferJob job);
    /// Ends what runs and drops what waits. Returns at once; what ends is not reported.
    void cancel();

  private:
    void run();
    [[nodiscard]] TransferOutcome outcome_of(const TransferJob& job);
    void renew_session(const TransferJob& job);
    void tell_states();
    void remove_left_over(const TransferJob& job);
    [[nodiscard]] TransferResult<void> attempt(const TransferJob& job, RemoteListing& listing);
    [[nodiscard]] TransferResult<void> with_retries(const TransferJob& job, RemoteListing& listing);
    [[nodiscard]] TransferResult<void> get(const TransferJob& job, const QString& path);

    TransferWaits waits_;
    JobReports reports_;
    Interruption interruption_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::optional<TransferJob> waiting_;
    bool ending_ = false;

    // The thread's own.
    TransferLogin login_;
    std::unique_ptr<RemoteSession> session_;
    QString folder_;
    int job_ = 0;
    QList<InternetState> states_;

    std::thread thread_;
};

}  // namespace pondera
