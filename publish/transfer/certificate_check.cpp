#include "publish/transfer/certificate_check.h"

#include <array>
#include <openssl/ssl.h>
#include <openssl/x509.h>

namespace pondera {
namespace {

int verify(X509_STORE_CTX* store, void* check) {
    return static_cast<CertificateCheck*>(check)->passes(store) ? 1 : 0;
}

QByteArray fingerprint_of(const X509* certificate) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    if (X509_digest(certificate, EVP_sha256(), digest.data(), &size) != 1) return {};
    return QByteArray(reinterpret_cast<const char*>(digest.data()), size).toHex();
}

QString holder_of(const X509* certificate) {
    std::array<char, 256> name{};
    X509_NAME_get_text_by_NID(X509_get_subject_name(certificate), NID_commonName, name.data(), name.size());
    return QString::fromUtf8(name.data());
}

}  // namespace

void CertificateCheck::judge(void* ssl_context) {
    auto* const context = static_cast<SSL_CTX*>(ssl_context);
    X509_VERIFY_PARAM* const rules = SSL_CTX_get0_param(context);
    const QByteArray host = host_.toLatin1();
    if (X509_VERIFY_PARAM_set1_ip_asc(rules, host.constData()) != 1)
        X509_VERIFY_PARAM_set1_host(rules, host.constData(), static_cast<size_t>(host.size()));
    SSL_CTX_set_cert_verify_callback(context, verify, this);
}

bool CertificateCheck::passes(void* store_context) {
    auto* const store = static_cast<X509_STORE_CTX*>(store_context);
    const X509* const certificate = X509_STORE_CTX_get0_cert(store);
    if (certificate == nullptr) return false;
    fingerprint_ = fingerprint_of(certificate);
    holder_ = holder_of(certificate);
    const bool vouched = X509_verify_cert(store) == 1;
    doubt_ = vouched ? QString() : QString::fromLatin1(X509_verify_cert_error_string(X509_STORE_CTX_get_error(store)));
    if (vouched) return true;
    if (trusted_.isEmpty() || fingerprint_ != trusted_) return false;
    X509_STORE_CTX_set_error(store, X509_V_OK);
    return true;
}

QString tls_protocol(void* ssl) {
    return ssl == nullptr ? QString() : QString::fromLatin1(SSL_get_version(static_cast<const SSL*>(ssl)));
}

}  // namespace pondera
