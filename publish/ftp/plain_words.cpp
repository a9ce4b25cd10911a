#include "publish/ftp/plain_words.h"

#include <QHash>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// A fingerprint as people compare it: "AB:CD:…" in two lines.
QString readable(const QByteArray& fingerprint) {
    constexpr qsizetype kHalf = 32;
    QStringList lines;
    for (const QByteArray& half : {fingerprint.first(std::min(kHalf, fingerprint.size())), fingerprint.mid(kHalf)})
        if (!half.isEmpty()) lines << QString::fromLatin1(QByteArray::fromHex(half).toHex(':')).toUpper();
    return lines.join(u'\n');
}

QString advice(int code) {
    static const QString kLogin =
        u"Compare user name and password with the letter of your provider; small and capital letters make a difference."_s;
    static const QString kAddress =
        u"Compare the address with the letter of your provider, and see whether this computer is on the Internet."_s;
    static const QString kOnceMore = u"Connect again."_s;
    static const QHash<int, QString> kAdvice = {
        {kTimedOut, kOnceMore},
        {kBadAddress, u"An address looks like ftp.example.org."_s},
        {kUnknownScheme, u"An address looks like ftp.example.org."_s},
        {kNameNotResolved, kAddress},
        {kCannotConnect, kAddress},
        {kUserRefused, kLogin},
        {kPasswordRefused, kLogin},
        {kLoginFailed, kLogin},
        {kConnectionEnded, kOnceMore},
        {kConnectionReset, kOnceMore},
        {kFileChanged, u"Publish again."_s},
        {kNoProtection, u"Your password was not sent. Ask your provider whether the server has protection (TLS)."_s},
    };
    return kAdvice.value(code);
}

/// Why a server is not trusted: the system's words about certificates, in those of a person.
QString doubt_words(const QString& doubt) {
    static const QString kUnknown = u"Nobody that this computer knows vouches for it."_s;
    static const QString kOtherName = u"Its certificate is made out to another name."_s;
    static const QHash<QString, QString> kWords = {
        {u"self-signed certificate"_s, u"Nobody but the server itself vouches for it."_s},
        {u"self-signed certificate in certificate chain"_s, kUnknown},
        {u"unable to get local issuer certificate"_s, kUnknown},
        {u"unable to verify the first certificate"_s, kUnknown},
        {u"hostname mismatch"_s, kOtherName},
        {u"IP address mismatch"_s, kOtherName},
        {u"certificate has expired"_s, u"Its certificate has expired."_s},
        {u"certificate is not yet valid"_s, u"Its certificate is of a later day than this computer's clock shows."_s},
    };
    return kWords.value(doubt, doubt);
}

}  // namespace

QString plain_words(const TaskEnd& end) {
    const QString what_to_do = advice(end.code);
    return what_to_do.isEmpty() ? brief(end.text) : brief(end.text) + u'\n' + what_to_do;
}

QString brief(const QString& reply) {
    constexpr qsizetype kLongest = 180;
    const QString line = reply.simplified();
    return line.size() <= kLongest ? line : line.first(kLongest) + u'…';
}

QString protection_words(const LineProtection& protection) {
    if (!protection.encrypted) return u"NOT protected: password and files travel in the open"_s;
    if (!protection.files_encrypted && protection.protocol != u"SSH")
        return u"Password protected (TLS), files travel in the open"_s;
    if (protection.protocol == u"SSH") return u"Protected (SSH), the server is the one that you trust"_s;
    return protection.verified ? u"Protected (TLS), certificate verified"_s
                               : u"Protected (TLS), with the certificate that you trust"_s;
}

QString open_line_question(const QString& host) {
    return u"WARNING: until now the connection to the server \"%1\" was protected. Today the server offers no "
           "protection.\n\nSomebody may be trying to read your password, which was not sent yet. Say No and try again "
           "later, unless your provider has told you of the change.\n\n"
           "Do you want to send password and files in the open from now on?"_s.arg(host);
}

QString trust_question(const QString& host, const LineProtection& protection, const QByteArray& before) {
    const QString opening =
        before.isEmpty()
            ? u"The server \"%1\" cannot prove that it is the one it says it is."_s.arg(host)
            : u"WARNING: the server \"%1\" shows another identity than the one that you trusted.\n\n"
              "Somebody may be trying to read your password. Say No, unless your provider has told you of the change."_s
                  .arg(host);
    const QString holder = protection.holder.isEmpty() ? QString() : u"It calls itself: %1\n"_s.arg(protection.holder);
    return u"%1\n%2\n\n%3Its fingerprint:\n%4\n\n"
           "Do you want to trust this server from now on?"_s.arg(opening, doubt_words(protection.doubt), holder,
                                                                 readable(protection.fingerprint));
}

}  // namespace pondera
