#include "publish/transfer/host_key_check.h"

#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace pondera {

bool HostKeyCheck::passes(const QByteArray& key) {
    fingerprint_ = QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex();
    if (fingerprint_ == trusted_)
        doubt_.clear();
    else if (trusted_.isEmpty())
        doubt_ = u"This server has not been met before, so nothing tells yet that it is the right one."_s;
    else
        doubt_ = u"The server shows another key than the one that was trusted: it may be another server."_s;
    return doubt_.isEmpty();
}

QString shown_host_key(const QByteArray& fingerprint) {
    const QByteArray base64 = QByteArray::fromHex(fingerprint).toBase64(QByteArray::OmitTrailingEquals);
    return u"SHA256:"_s + QString::fromLatin1(base64);
}

}  // namespace pondera
