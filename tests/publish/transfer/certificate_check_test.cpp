#include "publish/transfer/certificate_check.h"

#include <QProcess>

#include <memory>
#include <openssl/ssl.h>

#include "tests/support/test_folder.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

QByteArray openssl(const QStringList& arguments) {
    QProcess process;
    process.start(u"openssl"_s, arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

/// A server whose certificate an authority of its own vouches for, and the TLS greeting of a client that may know that
/// authority.
class CertificateChains : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        folder = std::make_unique<TestFolder>();
        const QStringList both = {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-days"_s, u"2"_s};
        openssl(both + QStringList{u"-subj"_s, u"/CN=club authority"_s, u"-keyout"_s, file(u"ca.key"), u"-out"_s,
                                   file(u"ca.pem")});
        openssl(both + QStringList{u"-CA"_s, file(u"ca.pem"), u"-CAkey"_s, file(u"ca.key"), u"-subj"_s,
                                   u"/CN=club server"_s, u"-addext"_s,
                                   u"subjectAltName=DNS:ftp.club.example,IP:127.0.0.1"_s, u"-keyout"_s,
                                   file(u"key.pem"), u"-out"_s, file(u"cert.pem")});
        const QByteArray line =
            openssl({u"x509"_s, u"-in"_s, file(u"cert.pem"), u"-noout"_s, u"-sha256"_s, u"-fingerprint"_s});
        fingerprint = line.mid(line.indexOf('=') + 1).trimmed().replace(":", "").toLower();
    }
    static void TearDownTestSuite() { folder.reset(); }
    static QString file(QStringView name) { return folder->path(name.toString()); }

    /// Whether the greeting comes to its end.
    static bool greets(CertificateCheck& check, bool knows_authority) {
        using Context = std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)>;
        using Line = std::unique_ptr<SSL, decltype(&SSL_free)>;
        const Context server_context(SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
        const Context client_context(SSL_CTX_new(TLS_client_method()), SSL_CTX_free);
        SSL_CTX_use_certificate_file(server_context.get(), qPrintable(file(u"cert.pem")), SSL_FILETYPE_PEM);
        SSL_CTX_use_PrivateKey_file(server_context.get(), qPrintable(file(u"key.pem")), SSL_FILETYPE_PEM);
        SSL_CTX_set_verify(client_context.get(), SSL_VERIFY_PEER, nullptr);
        if (knows_authority) SSL_CTX_load_verify_file(client_context.get(), qPrintable(file(u"ca.pem")));
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

    static inline std::unique_ptr<TestFolder> folder;
    static inline QByteArray fingerprint;
};

TEST_F(CertificateChains, AuthorityNameAndTrustDecide) {
    struct Row {
        QString host;
        bool knows_authority;
        QByteArray trusted;
        bool passes;
        QString doubt;
    };
    for (const Row& row : {Row{u"ftp.club.example"_s, true, {}, true, {}}, Row{u"127.0.0.1"_s, true, {}, true, {}},
                           Row{u"www.club.example"_s, true, {}, false, u"hostname mismatch"_s},
                           Row{u"127.0.0.2"_s, true, {}, false, u"IP address mismatch"_s},
                           Row{u"ftp.club.example"_s, false, {}, false, u"unable to get local issuer"_s},
                           Row{u"ftp.club.example"_s, false, fingerprint, true, u"unable to get local issuer"_s},
                           Row{u"www.club.example"_s, true, fingerprint, true, u"hostname mismatch"_s},
                           Row{u"www.club.example"_s, true, QByteArray(64, 'a'), false, u"hostname mismatch"_s}}) {
        CertificateCheck check(row.host, row.trusted);
        EXPECT_EQ(greets(check, row.knows_authority), row.passes) << qPrintable(row.host + row.doubt);
        EXPECT_EQ(check.fingerprint(), fingerprint);
        EXPECT_EQ(check.holder(), u"club server"_s);
        EXPECT_EQ(check.doubt().isEmpty(), row.doubt.isEmpty()) << qPrintable(row.host);
        EXPECT_TRUE(check.doubt().startsWith(row.doubt)) << qPrintable(row.host + check.doubt());
    }
}

}  // namespace
}  // namespace pondera
