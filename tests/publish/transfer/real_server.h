#pragma once

#include <QProcess>

#include "tests/support/test_folder.h"

namespace pondera {

/// Bytes of every kind.
inline QByteArray picture(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 + i / 251);
    return bytes;
}

/// A real server on a free port of loopback, with a throw-away folder that anybody may write to.
class RealServer {
  public:
    enum class Kind { kVsftpd, kPyftpdlib, kAsyncssh };

    /// With `tls` an FTP server offers protection, with a certificate that no authority vouches for.
    explicit RealServer(Kind kind, bool tls = false);
    ~RealServer();
    RealServer(const RealServer&) = delete;
    RealServer& operator=(const RealServer&) = delete;

    [[nodiscard]] QString host() const;
    /// The file of an SSH server's key.
    [[nodiscard]] QString host_key() const { return folder_.path(u"host_key"_s); }
    /// The served folder, as the server calls it.
    [[nodiscard]] QString remote_root() const;
    /// The served folder itself.
    [[nodiscard]] QString path(const QString& file) const { return folder_.path(u"served/"_s + file); }
    QString put(const QString& file, const QByteArray& bytes = "x") const {
        return folder_.put(u"served/"_s + file, bytes);
    }
    [[nodiscard]] QByteArray bytes(const QString& file) const { return folder_.bytes(u"served/"_s + file); }
    /// Its names, sorted, folders among them.
    [[nodiscard]] QStringList names(const QString& folder = {}) const;

  private:
    [[nodiscard]] QStringList command();

    TestFolder folder_;
    Kind kind_;
    bool tls_;
    int port_ = 0;
    QProcess process_;
};

}  // namespace pondera
