#pragma once

#include <QByteArray>
#include <QString>

#include "publish/transfer/internet_transfer.h"

class QSettings;

namespace pondera {

/// What is remembered of a server beside its settings file, in the person's settings under "Publish". No password.
class HostMemory {
  public:
    /// `host` as typed; case and blanks around it make no difference.
    HostMemory(QSettings& settings, const QString& host);

    [[nodiscard]] ProtectionWish protection() const;
    void set_protection(ProtectionWish wish);

    /// Whether the line to it, with the files, was protected the last time. One that is not any more is a sign that
    /// somebody stands between.
    [[nodiscard]] bool was_protected() const;
    void set_protected(bool protected_line);

    /// The fingerprint of the certificate or host key that the person trusts; empty for none.
    [[nodiscard]] QByteArray trusted() const;
    void trust(const QByteArray& fingerprint);

    /// The web address of what lies in a folder of the server; empty while the person has told none.
    [[nodiscard]] QString address(const QString& remote_folder) const;
    void set_address(const QString& remote_folder, const QString& address);

    /// Whether the last publication of a Website left files behind that the server refused.
    [[nodiscard]] bool incomplete(const QString& website) const;
    void set_incomplete(const QString& website, bool incomplete);

  private:
    [[nodiscard]] QString key(const QString& what, const QString& of = {}) const;

    QSettings& settings_;
    QString host_;
};

}  // namespace pondera
