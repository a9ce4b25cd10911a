#pragma once

#include <QString>

namespace pondera {

/// A place that Websites are published to, as a publishing record tells it from others: one line of text without
/// control characters, the same for the same place. It never holds a password.
class Destination {
  public:
    /// A folder on a server, by the host as typed (case and a default port make no difference) and the folder's
    /// absolute remote path.
    static Destination on_server(const QString& host, const QString& user, const QString& remote_folder);

    /// A folder of this machine or a drive.
    static Destination in_folder(const QString& folder);

    [[nodiscard]] const QString& key() const { return key_; }

  private:
    explicit Destination(QString key) : key_(std::move(key)) {}

    QString key_;
};

}  // namespace pondera
