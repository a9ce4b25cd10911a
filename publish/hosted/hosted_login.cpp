#include "publish/hosted/hosted_login.h"

#include <QDir>
#include <QRegularExpression>

#include "base/roots.h"
#include "base/text.h"

using namespace Qt::StringLiterals;

namespace pondera {

QString refusal_of_login(const HostedLogin& login) {
    static const QRegularExpression kDomain(u"^[a-z0-9_-]+(\\.[a-z0-9_-]+)*$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    if (login.server.host.trimmed().isEmpty()) return u"Insert the name of the remote host you want to connect to."_s;
    if (login.server.user.isEmpty() || login.server.site.isEmpty() || login.domain_password.isEmpty())
        return u"Insert all required data"_s;
    if (!kDomain.match(login.server.site).hasMatch())
        return u"The name of a sub-domain has letters, digits and hyphens only: bakery, for example."_s;
    return {};
}

QString hosted_settings_path(const Roots& roots) {
    return QDir(roots.websites()).filePath(u"FTP_PONDERA.txt"_s);
}

QString account_copy_path(const Roots& roots) {
    return QDir(roots.websites()).filePath(u"temp.txt"_s);
}

bool grants_entry(const QString& account, const QString& password) {
    static const QString kKey = u"password="_s;
    const qsizetype found = account.indexOf(kKey);
    return found >= 0 && without(account.sliced(found + kKey.size()), u"\r\n") == password;
}

}  // namespace pondera
