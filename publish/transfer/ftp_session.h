#pragma once

#include <QHash>

#include "publish/transfer/remote_session.h"

namespace pondera {

/// A session on an FTP server.
class FtpSession : public RemoteSession {
  public:
    FtpSession(const TransferLogin& login, const TransferWaits& waits, Interruption& interruption, SessionWatch watch);

    [[nodiscard]] TransferResult<void> open() override;
    [[nodiscard]] bool was_open() const override { return was_open_; }
    void drop() override { curl_.drop(); }
    [[nodiscard]] QString home() const override { return home_; }
    [[nodiscard]] LineProtection protection() const override { return curl_.protection(); }

    [[nodiscard]] TransferResult<RemoteListing> list(const QString& folder) override;
    [[nodiscard]] TransferResult<void> enter(const QString& folder) override;
    [[nodiscard]] TransferResult<void> make_folder(const QString& folder) override;
    [[nodiscard]] TransferResult<void> remove_folder(const QString& folder) override;
    [[nodiscard]] TransferResult<void> remove_file(const QString& path) override;
    [[nodiscard]] TransferResult<void> fetch(const QString& path, IncomingFile& file) override;
    [[nodiscard]] TransferResult<void> send(OutgoingFile& file, const QString& path) override;

  private:
    /// How a file comes to its name on this server, as far as is known.
    enum class Renaming { kOverFiles, kToFreeNames, kNever };

    [[nodiscard]] TransferResult<void> command(const QByteArray& verb, const QString& path);
    /// Uploads as `path`, then renames to `name` when it is not empty; `whole` tells whether the upload was.
    [[nodiscard]] TransferResult<void> upload(OutgoingFile& file, const QString& path, const QString& name,
                                              bool& whole);
    [[nodiscard]] TransferResult<void> upload(OutgoingFile& file, const QString& path);
    [[nodiscard]] TransferResult<void> rename(const QString& from, const QString& to);
    [[nodiscard]] TransferResult<void> make_way(const QString& whole, const QString& path,
                                                const TransferFault& refusal);
    /// Removes a file of our own, if that can be done.
    void discard(const QString& path);
    [[nodiscard]] QByteArray wire(const QString& path) const;
    [[nodiscard]] QByteArray url_path(const QString& path) const;

    CurlSession curl_;
    QString home_;
    bool was_open_ = false;
    bool machine_listings_ = false;
    Renaming renaming_ = Renaming::kOverFiles;
    QHash<QString, QByteArray> wire_names_;  ///< names that a listing brought in other bytes than UTF-8
};

}  // namespace pondera
