#pragma once

#include <QByteArray>
#include <QString>

namespace pondera {

/// Judges the key by which an SSH server proves who it is: nobody vouches for it but the person, who trusts a
/// fingerprint.
class HostKeyCheck {
  public:
    /// `trusted` is a fingerprint as `LineProtection` has it, empty for none.
    explicit HostKeyCheck(QByteArray trusted) : trusted_(std::move(trusted)) {}

    /// Looks at a key, in the protocol's bytes; whether the connection may go on.
    bool passes(const QByteArray& key);

    [[nodiscard]] const QByteArray& fingerprint() const { return fingerprint_; }
    /// Why the key is not trusted; empty when it is.
    [[nodiscard]] const QString& doubt() const { return doubt_; }

  private:
    QByteArray trusted_;
    QByteArray fingerprint_;
    QString doubt_;
};

/// A host key's fingerprint as providers print it and other programs show it, "SHA256:" and base64, from the
/// hexadecimal one of `LineProtection`.
[[nodiscard]] QString shown_host_key(const QByteArray& fingerprint);

}  // namespace pondera
