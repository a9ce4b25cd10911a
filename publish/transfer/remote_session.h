#pragma once

#include <QString>

#include "publish/transfer/local_file.h"
#include "publish/transfer/transfer_faults.h"

namespace pondera {

/// A session on a server, by absolute remote paths. Every call blocks until it is done, failed or interrupted; one that
/// failed because the connection broke can be made again after `open`.
class RemoteSession {
  public:
    RemoteSession() = default;
    virtual ~RemoteSession() = default;
    RemoteSession(const RemoteSession&) = delete;
    RemoteSession& operator=(const RemoteSession&) = delete;

    /// Connects and logs in, unless the session stands.
    [[nodiscard]] virtual TransferResult<void> open() = 0;
    /// Whether a login has ever succeeded.
    [[nodiscard]] virtual bool was_open() const = 0;
    /// Gives the connection up.
    virtual void drop() = 0;
    /// The folder that the login leads to.
    [[nodiscard]] virtual QString home() const = 0;
    [[nodiscard]] virtual LineProtection protection() const = 0;

    [[nodiscard]] virtual TransferResult<RemoteListing> list(const QString& folder) = 0;
    /// Whether `folder` is one that can be entered.
    [[nodiscard]] virtual TransferResult<void> enter(const QString& folder) = 0;
    [[nodiscard]] virtual TransferResult<void> make_folder(const QString& folder) = 0;
    [[nodiscard]] virtual TransferResult<void> remove_folder(const QString& folder) = 0;
    [[nodiscard]] virtual TransferResult<void> remove_file(const QString& path) = 0;
    [[nodiscard]] virtual TransferResult<void> fetch(const QString& path, IncomingFile& file) = 0;
    /// Puts `file` in the place of `path`, whole or not at all as far as the server allows it.
    [[nodiscard]] virtual TransferResult<void> send(OutgoingFile& file, const QString& path) = 0;
};

}  // namespace pondera
