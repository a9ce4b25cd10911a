#include "publish/transfer/certificate_check.h"

#include <QProcess>

#include <memory>
#include <openssl/ssl.h>

#include "tests/support/test_folder.h"

namespace pondera {

static QByteArray openssl(const QString& arguments) {
    QProcess process;
    process.start(u"openssl"_s, arguments.split(u'|'));
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

/// Whether the TLS greeting between a client and the server of `cert.pem` and `key.pem` comes to its end.
static bool greets(const TestFolder& keys, CertificateCheck& check, bool knows_authority) {
    using Context = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;
    using Line = std::unique_ptr<SSL, decltype(&SSL_free)>;
    const Context server_context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    const Context client_context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
    SSL_CTX_use_certificate_file(server_context.get(), qPrintable(keys.path(u"cert.pem"_s)), SSL_FILETYPE_PEM);
    SSL_CTX_use_PrivateKey_file(server_context.get(), qPrintable(keys.path(u"key.pem"_s)), SSL_FILETYPE_PEM);
    SSL_CTX_set_verify(client_context.get(), SSL_VERIFY_PEER, nullptr);
    if (knows_authority) SSL_CTX_load_verify_file(client_context.get(), qPrintable(keys.path(u"ca.pem"_s)));
    check.judge(client_context.get());

    const Line server(SSL_new(server_context.get()), SSL_free);
    const Line client(SSL_new(client_context.get()), SSL_free);
    BIO* there = nullptr;
    BIO* here = nullptr;
    BIO_new_bio_pair(&there, 0, &here, 0);
    SSL_set_bio(server.get(), there, there);
    SSL_set_bio(client.get(), here, here);
    SSL_set_accept_state(server.get());
    SSL_set_connect_state(client.get());
    for (int turn = 0; turn < 10 && SSL_do_handshake(client.get()) != 1; ++turn) SSL_do_handshake(server.get());
    return SSL_is_init_finished(client.get()) == 1;
}

TEST(CertificateCheck, AuthorityNameAndTrustDecide) {
    const TestFolder keys;
    const QString made = u"req|-x509|-newkey|rsa:2048|-nodes|-days|2|-keyout|%1|-out|%2|-subj|/CN=%3"_s;
    openssl(made.arg(keys.path(u"ca.key"_s), keys.path(u"ca.pem"_s), u"club authority"_s));
    openssl(made.arg(keys.path(u"key.pem"_s), keys.path(u"cert.pem"_s), u"club server"_s) +
            u"|-addext|subjectAltName=DNS:ftp.club.example,IP:127.0.0.1|-CA|%1|-CAkey|%2"_s.arg(
                keys.path(u"ca.pem"_s), keys.path(u"ca.key"_s)));
    const QByteArray said = openssl(u"x509|-noout|-sha256|-fingerprint|-in|"_s + keys.path(u"cert.pem"_s));
    const QByteArray own = said.mid(said.indexOf('=') + 1).trimmed().replace(":", "").toLower();
    struct Row {
        QString host;
        bool knows_authority;
        QByteArray trusted;
        bool passes;
        QString doubt;
    };
    const QString unknown = u"unable to get local issuer certificate"_s;
    for (const Row& row :
         {Row{u"ftp.club.example"_s, true, {}, true, {}}, Row{u"127.0.0.1"_s, true, {}, true, {}},
          Row{u"www.club.example"_s, true, {}, false, u"hostname mismatch"_s},
          Row{u"ftp.club.example"_s, false, {}, false, unknown}, Row{u"ftp.club.example"_s, false, own, true, unknown},
          Row{u"www.club.example"_s, true, own, true, u"hostname mismatch"_s},
          Row{u"www.club.example"_s, true, QByteArray(64, 'a'), false, u"hostname mismatch"_s}}) {
        CertificateCheck check(row.host, row.trusted);
        EXPECT_EQ(greets(keys, check, row.knows_authority), row.passes) << qPrintable(row.host + row.doubt);
        EXPECT_EQ(check.fingerprint(), own);
        EXPECT_EQ(check.holder(), u"club server"_s);
        EXPECT_EQ(check.doubt(), row.doubt) << qPrintable(row.host);
    }
}

}  // namespace pondera
