#pragma once

#include "publish/transfer/curl_remote_session.h"

namespace pondera {

/// A session on an FTP server.
class FtpSession : public CurlRemoteSession {
  public:
    FtpSession(const TransferLogin& login, const TransferWaits& waits, Interruption& interruption, SessionWatch watch)
        : CurlRemoteSession(login, waits, interruption, std::move(watch)) {}

    [[nodiscard]] TransferResult<void> open() override;
    [[nodiscard]] TransferResult<RemoteListing> list(const QString& folder) override;
    [[nodiscard]] TransferResult<void> enter(const QString& folder) override;

  private:
    [[nodiscard]] QByteArrayList commands_for(RemoteChange change, const QByteArray& path,
                                              const QByteArray& to) const override;

    bool machine_listings_ = false;
};

}  // namespace pondera
