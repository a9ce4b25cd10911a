#include "publish/ftp/host_memory.h"

#include <QSettings>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

/// A text as one part of a key: settings take "/" and "\" for separators.
QString part(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

const QString kRequired = u"Always"_s;
const QString kNone = u"Never"_s;

}  // namespace

HostMemory::HostMemory(QSettings& settings, const QString& host)
    : settings_(settings), host_(host.trimmed().toLower()) {
}

QString HostMemory::key(const QString& what, const QString& of) const {
    const QString key = u"Publish/"_s + part(host_) + u'/' + what;
    return of.isEmpty() ? key : key + u'/' + part(of);
}

ProtectionWish HostMemory::protection() const {
    const QString wish = settings_.value(key(u"Protection"_s)).toString();
    return wish == kRequired ? ProtectionWish::kRequired
           : wish == kNone   ? ProtectionWish::kNone
                             : ProtectionWish::kWhenOffered;
}

void HostMemory::set_protection(ProtectionWish wish) {
    if (wish == ProtectionWish::kWhenOffered)
        settings_.remove(key(u"Protection"_s));
    else
        settings_.setValue(key(u"Protection"_s), wish == ProtectionWish::kRequired ? kRequired : kNone);
}

bool HostMemory::was_protected() const {
    return settings_.value(key(u"Protected"_s), false).toBool();
}

void HostMemory::set_protected(bool protected_line) {
    if (protected_line)
        settings_.setValue(key(u"Protected"_s), true);
    else
        settings_.remove(key(u"Protected"_s));
}

QByteArray HostMemory::trusted() const {
    return settings_.value(key(u"Certificate"_s)).toString().toLatin1();
}

void HostMemory::trust(const QByteArray& fingerprint) {
    settings_.setValue(key(u"Certificate"_s), QString::fromLatin1(fingerprint));
}

QString HostMemory::address(const QString& remote_folder) const {
    return settings_.value(key(u"Address"_s, remote_folder)).toString();
}

void HostMemory::set_address(const QString& remote_folder, const QString& address) {
    settings_.setValue(key(u"Address"_s, remote_folder), address);
}

bool HostMemory::incomplete(const QString& website) const {
    return settings_.value(key(u"Incomplete"_s, website), false).toBool();
}

void HostMemory::set_incomplete(const QString& website, bool incomplete) {
    if (incomplete)
        settings_.setValue(key(u"Incomplete"_s, website), true);
    else
        settings_.remove(key(u"Incomplete"_s, website));
}

}  // namespace pondera
