#pragma once

#include <QHash>

#include "publish/transfer/remote_session.h"

namespace pondera {

enum class RemoteChange { kMakeFolder, kRemoveFolder, kRemoveFile, kRename };

/// What the sessions of all protocols have in common: one libcurl session, and the way in which a file comes to its
/// name. A protocol adds its login, its listings and its words.
class CurlRemoteSession : public RemoteSession {
  public:
    [[nodiscard]] bool was_open() const override { return was_open_; }
    void drop() override { curl_.drop(); }
    [[nodiscard]] QString home() const override { return home_; }
    [[nodiscard]] LineProtection protection() const override { return curl_.protection(); }

    [[nodiscard]] TransferResult<void> make_folder(const QString& folder) override;
    [[nodiscard]] TransferResult<void> remove_folder(const QString& folder) override;
    [[nodiscard]] TransferResult<void> remove_file(const QString& path) override;
    [[nodiscard]] TransferResult<void> fetch(const QString& path, IncomingFile& file) override;
    [[nodiscard]] TransferResult<void> send(OutgoingFile& file, const QString& path) override;

  protected:
    CurlRemoteSession(const TransferLogin& login, const TransferWaits& waits, Interruption& interruption,
                      SessionWatch watch);

    /// The commands for a change; `path` and `to` (for kRename only) are absolute, in the server's bytes.
    [[nodiscard]] virtual QByteArrayList commands_for(RemoteChange change, const QByteArray& path,
                                                      const QByteArray& to) const = 0;

    [[nodiscard]] CurlSession& curl() { return curl_; }
    /// The login has succeeded and led to `home`, in the server's bytes.
    void opened(const QByteArray& home);
    /// Does a request that lists `folder`.
    [[nodiscard]] TransferResult<RemoteListing> list_by(const QString& folder, CurlRequest request);
    /// A path as it stands in a request, percent-encoded.
    [[nodiscard]] QByteArray url_path(const QString& path) const;
    [[nodiscard]] QByteArray url_folder(const QString& folder) const;

  private:
    /// How a file comes to its name on this server, as far as is known.
    enum class Renaming { kOverFiles, kToFreeNames, kNever };

    [[nodiscard]] TransferResult<void> change(RemoteChange change, const QString& path, const QString& to = {});
    /// Uploads as `path`, then renames to `name` when it is not empty; `whole` tells whether the upload was.
    [[nodiscard]] TransferResult<void> upload(OutgoingFile& file, const QString& path, const QString& name,
                                              bool& whole);
    [[nodiscard]] TransferResult<void> upload(OutgoingFile& file, const QString& path);
    [[nodiscard]] TransferResult<void> make_way(const QString& whole, const QString& path,
                                                const TransferFault& refusal);
    /// Removes a file of our own, if that can be done.
    void discard(const QString& path);
    [[nodiscard]] QByteArray wire(const QString& path) const;

    CurlSession curl_;
    QString home_;
    bool was_open_ = false;
    Renaming renaming_ = Renaming::kOverFiles;
    QHash<QString, QByteArray> wire_names_;  ///< by path: the last names of those that listings brought in other bytes
};

}  // namespace pondera
