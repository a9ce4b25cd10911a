#pragma once

#include <QByteArray>
#include <QString>

namespace pondera {

/// Judges the certificates of a session's TLS connections: the system's list of authorities and the host's name decide,
/// and where they say no, the fingerprint that the person trusts. Remembers what it saw of the server's certificate.
class CertificateCheck {
  public:
    /// `host` is a host name or a number; `trusted` a fingerprint, empty for none.
    CertificateCheck(QString host, QByteArray trusted) : host_(std::move(host)), trusted_(std::move(trusted)) {}

    /// Sets itself up as the judge of a TLS context (an SSL_CTX), which must not outlive it.
    void judge(void* ssl_context);

    [[nodiscard]] const QByteArray& fingerprint() const { return fingerprint_; }
    [[nodiscard]] const QString& holder() const { return holder_; }
    /// Why the system does not vouch for the certificate; empty when it does.
    [[nodiscard]] const QString& doubt() const { return doubt_; }

    /// Looks at a chain (an X509_STORE_CTX); whether the connection may go on.
    bool passes(void* store_context);

  private:
    QString host_;
    QByteArray trusted_;
    QByteArray fingerprint_;
    QString holder_;
    QString doubt_;
};

/// The protocol of a TLS connection (an SSL), such as "TLSv1.2".
[[nodiscard]] QString tls_protocol(void* ssl);

}  // namespace pondera
