#pragma once

#include "publish/transfer/internet_transfer.h"
#include "publish/transfer/transfer_faults.h"
#include "publish/transfer/transfer_worker.h"

namespace pondera {

/// The transfer control over libcurl.
class CurlTransfer : public InternetTransfer {
    Q_OBJECT
  public:
    explicit CurlTransfer(QObject* parent = nullptr, TransferWaits waits = {});
    ~CurlTransfer() override;

    void set_host(const QString& typed) override { host_ = typed; }
    void set_user(const QString& user) override { user_ = user; }
    void set_password(const QString& password) override { password_ = password; }
    void set_protection(ProtectionWish wish) override { wish_ = wish; }
    void trust_certificate(const QByteArray& fingerprint) override { trusted_ = fingerprint; }
    void set_local_root(const QString& folder) override { local_root_ = folder; }

    void Execute(const QString& command) override;
    void Cancel() override;

    [[nodiscard]] bool StillExecuting() const override { return running_; }
    [[nodiscard]] int ResponseCode() const override { return outcome_.code; }
    [[nodiscard]] QString ResponseInfo() const override { return outcome_.text; }
    [[nodiscard]] const RemoteListing& Listing() const override { return outcome_.listing; }
    [[nodiscard]] QString RemoteFolder() const override { return outcome_.remote_folder; }
    [[nodiscard]] const LineProtection& Protection() const override { return outcome_.protection; }

  private:
    [[nodiscard]] TransferResult<TransferJob> job_for(const QString& command) const;
    [[nodiscard]] JobReports reports();
    void refuse(const TransferFault& fault);
    void tell(const QList<InternetState>& states);
    void finish(TransferOutcome outcome);

    QString host_;
    QString user_;
    QString password_;
    ProtectionWish wish_ = ProtectionWish::kWhenOffered;
    QByteArray trusted_;
    QString local_root_;

    TransferOutcome outcome_;
    bool running_ = false;
    bool listing_asked_ = false;
    int job_ = 0;
    TransferWorker worker_;
};

}  // namespace pondera
