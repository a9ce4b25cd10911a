#pragma once

#include <QObject>
#include <QString>

#include "publish/transfer/transfer_outcome.h"

namespace pondera {

enum class ProtectionWish {
    kNone,         ///< no protection is asked for
    kWhenOffered,  ///< protected when the server offers it
    kRequired,     ///< the password never goes over a line without protection
};

/// The Internet transfer control: does text commands on a server, one at a time, and tells by its states how far it is.
/// The session to the server stays between commands. Nothing here waits: `Execute` and `Cancel` return at once, and
/// signals come from the event loop.
class InternetTransfer : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;

    /// The server for the next command, as typed (`parse_host` tells the forms). A new server, user or password means
    /// a new session, which begins in the folder that the server gives.
    virtual void set_host(const QString& typed) = 0;
    virtual void set_user(const QString& user) = 0;
    virtual void set_password(const QString& password) = 0;
    virtual void set_protection(ProtectionWish wish) = 0;

    /// Lets the certificate or host key with this fingerprint pass although the system does not vouch for it; empty
    /// for none. It is the one of `LineProtection`, after kCertificateNotTrusted.
    virtual void trust_certificate(const QByteArray& fingerprint) = 0;

    /// The folder that "GET" may write into; it refuses all others, and everything when none is set.
    virtual void set_local_root(const QString& folder) = 0;

    /// Starts a command (`parse_command` tells the forms). Its end is told by StateChanged: kResponseCompleted when
    /// the server has answered (`ResponseCode` is 0 or 12003), kError for every other fault. While another command
    /// runs, nothing is started, and the running one goes on.
    /// "SEND" replaces a file whole or not at all: it goes up under a temporary name. "GET" does so locally.
    virtual void Execute(const QString& command) = 0;

    /// Ends the running command at once, with kDisconnecting and kDisconnected; the session is built again by the next
    /// command, which finds the remote folder as it was. Without a running command nothing happens, and the session
    /// stands.
    virtual void Cancel() = 0;

    [[nodiscard]] virtual bool StillExecuting() const = 0;

    /// How the last command ended: a `ResponseNumber`, or the number of a local file's fault.
    [[nodiscard]] virtual int ResponseCode() const = 0;
    /// The server's reply for 12003; for other faults a sentence for a person.
    [[nodiscard]] virtual QString ResponseInfo() const = 0;
    /// The last listing that "DIR" brought.
    [[nodiscard]] virtual const RemoteListing& Listing() const = 0;
    /// The current folder on the server, absolute; empty before the first session.
    [[nodiscard]] virtual QString RemoteFolder() const = 0;
    /// How the session is protected, or what stood against it.
    [[nodiscard]] virtual const LineProtection& Protection() const = 0;

  signals:
    void StateChanged(pondera::InternetState state);
    /// The running "GET" or "SEND": bytes that went so far, and all of them (0 when the server does not tell).
    void Progress(qint64 now, qint64 total);
};

}  // namespace pondera
