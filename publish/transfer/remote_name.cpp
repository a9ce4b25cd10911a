#include "publish/transfer/remote_name.h"

#include <QCryptographicHash>
#include <QDir>
#include <QRegularExpression>
#include <QStringList>
#include <QSysInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kLongestName = 255;

}  // namespace

bool has_control_characters(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) { return c.category() == QChar::Other_Control; });
}

bool is_plain_name(const QString& name) {
    if (name.isEmpty() || name == u"." || name == u"..") return false;
    if (name.contains(u'/') || name.contains(u'\\') || has_control_characters(name)) return false;
    if (name.size() > 1 && name[0].isLetter() && name[1] == u':') return false;
    return name.toUtf8().size() <= kLongestName;
}

QString resolve_remote(const QString& folder, const QString& name) {
    QStringList parts;
    for (const QString& part : (name.startsWith(u'/') ? name : folder + u'/' + name).split(u'/', Qt::SkipEmptyParts)) {
        if (part == u".") continue;
        if (part != u"..")
            parts << part;
        else if (!parts.isEmpty())
            parts.removeLast();
    }
    return u'/' + parts.join(u'/');
}

QString temporary_beside(const QString& path) {
    static const QByteArray kSender = QSysInfo::machineUniqueId() + QDir::homePath().toUtf8();
    const QByteArray seed = kSender + path.toUtf8();
    const QByteArray hash = QCryptographicHash::hash(seed, QCryptographicHash::Sha256).toHex().first(16);
    return path.section(u'/', 0, -2) + u"/pnd-"_s + QString::fromLatin1(hash) + u".part"_s;
}

bool is_temporary_name(const QString& name) {
    static const QRegularExpression kTemporary(u"^pnd-[0-9a-f]{16}\\.part$"_s);
    return kTemporary.match(name).hasMatch();
}

}  // namespace pondera
