#include "publish/ftp/ftp_settings.h"

#include <QDir>
#include <QUrl>

#include <algorithm>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

const QString kLineEnd = u"\r\n"_s;
const QString kPrefix = u"FTP_"_s;
const QString kEnding = u".txt"_s;
const QString kHostedDomain = u"PONDERA"_s;

/// A host as part of a file name.
QString file_part(const QString& host) {
    QString part;
    for (const QChar c : host) {
        const bool harmless = c.category() != QChar::Other_Control && c != u'/' && c != u'\\' && c != u'%';
        part += harmless ? QString(c) : QString::fromLatin1(QUrl::toPercentEncoding(c, {}, "%"));
    }
    return part;
}

void read_value(const QString& text, const QString& key, QString& field) {
    const qsizetype found = text.indexOf(key);
    if (found < 0) return;
    const qsizetype start = std::min(found + key.size() + 1, text.size());
    const qsizetype end = text.indexOf(kLineEnd, start);
    field = text.sliced(start, (end < 0 ? text.size() : end) - start);
}

}  // namespace

QString ftp_settings_text(const FtpLogin& login) {
    QString text = u"nomehost "_s + login.host + kLineEnd + u"userid "_s + login.user + kLineEnd;
    if (!login.password.isEmpty()) text += u"password "_s + login.password + kLineEnd;
    if (!login.site.isEmpty()) text += u"sito "_s + login.site + kLineEnd;
    return u'"' + text + u'"' + kLineEnd;
}

void read_ftp_settings(const QString& text, FtpLogin& login) {
    read_value(text, u"nomehost"_s, login.host);
    read_value(text, u"userid"_s, login.user);
    read_value(text, u"password"_s, login.password);
    read_value(text, u"sito"_s, login.site);
}

QString ftp_settings_path(const Roots& roots, const QString& host) {
    return QDir(roots.websites()).filePath(kPrefix + file_part(host) + kEnding);
}

QStringList ftp_hosts(const Roots& roots) {
    QStringList hosts;
    for (QString name : QDir(roots.websites()).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::IgnoreCase)) {
        if (!name.contains(kPrefix) || name.contains(kHostedDomain) || !name.endsWith(kEnding)) continue;
        hosts << QUrl::fromPercentEncoding(name.remove(kPrefix).remove(kEnding).toUtf8());
    }
    return hosts;
}

FileResult<void> save_ftp_settings(const QString& path, const FtpLogin& login) {
    return write_private_file(path, ftp_settings_text(login).toUtf8());
}

FileResult<void> load_ftp_settings(const QString& path, FtpLogin& login) {
    const auto file = read_text_file(path);
    if (!file) return std::unexpected(file.error());
    read_ftp_settings(file->text, login);
    return {};
}

FileResult<void> delete_ftp_settings(const QString& path) {
    return QFileInfo(path).isSymLink() || QFileInfo::exists(path) ? remove_file(path) : FileResult<void>();
}

}  // namespace pondera
