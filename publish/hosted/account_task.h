#pragma once

#include "publish/ftp/connect_task.h"
#include "publish/hosted/hosting_service.h"

namespace pondera {

/// Goes to the folder of a sub-domain, as connecting does, and checks the sub-domain's password by the account file in
/// it before anything is listed. The file's copy is on this disk only until it was read; from its first byte on only
/// its owner may read it.
class AccountTask : public ConnectTask {
  public:
    enum class Outcome {
        kOpen,  ///< the server has not said enough
        kAccepted,
        kRefused,      ///< no such sub-domain, or another password
        kNoWebRoot,    ///< the server is none of the service: the web root is not there
        kNoLocalCopy,  ///< the file could not be read or written here
    };

    /// `copy` is the path of the account file's copy.
    AccountTask(const HostingService& service, const QString& domain, QString password, QString copy);
    ~AccountTask() override;

    void next_turn(CommandStack& stack, const QString& folder) override;
    void answered(const CommandAnswer& answer, CommandStack& stack) override;

    /// Removes the copy; false when it is still there afterwards.
    bool remove_copy();

    [[nodiscard]] Outcome outcome() const { return outcome_; }

  private:
    void enter(const CommandAnswer& answer, CommandStack& stack);
    void check(const CommandAnswer& answer);

    QString account_file_;
    QString password_;
    QString copy_;
    bool has_web_root_ = false;
    Outcome outcome_ = Outcome::kOpen;
};

}  // namespace pondera
