#pragma once

#include "publish/commands/remote_task.h"
#include "publish/hosted/hosting_service.h"

namespace pondera {

/// Checks the password of a sub-domain by its account file on the server, and lists the sub-domain's folder when it is
/// right. The file's copy is on this disk only until it was read; from its first byte on only its owner may read it.
class AccountTask : public RemoteTask {
  public:
    enum class Outcome {
        kOpen,  ///< the server has not said enough
        kAccepted,
        kRefused,     ///< no such sub-domain, or another password
        kNoWebRoot,   ///< the server is none of the service: the web root is not there
        kNoLocalCopy  ///< the file could not be read or written here
    };

    /// `copy` is the path of the account file's copy. In a session that has begun, the service's web root has to be
    /// absolute: the one of an earlier task.
    AccountTask(HostingService service, QString domain, QString password, QString copy);
    ~AccountTask() override;

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    /// Removes the copy; false when it is still there afterwards.
    bool remove_copy();

    [[nodiscard]] Outcome outcome() const { return outcome_; }
    /// The service's web root on the server, absolute; empty while it was not entered.
    [[nodiscard]] const QString& web_root() const { return web_root_; }
    /// The sub-domain's folder on the server, absolute.
    [[nodiscard]] const QString& remote_folder() const { return remote_folder_; }
    /// What it holds.
    [[nodiscard]] const RemoteListing& listing() const { return listing_; }

  private:
    void enter(const CommandAnswer& answer, CommandStack& stack);
    void check(const CommandAnswer& answer, CommandStack& stack);

    HostingService service_;
    QString domain_;
    QString password_;
    QString copy_;
    bool begun_ = false;
    Outcome outcome_ = Outcome::kOpen;
    QString web_root_;
    QString remote_folder_;
    RemoteListing listing_;
};

}  // namespace pondera
