#include "publish/transfer/remote_listing.h"

#include <QRegularExpression>

#include <optional>

#include "base/text_file.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

// The expressions work on the line's bytes, one character a byte, so that a name's bytes are kept as they came.
using Line = QString;

constexpr qsizetype kLongestLine = 4096;

/// "type=file;size=120; name"
std::optional<RemoteEntry> machine_entry(const Line& line) {
    static const QRegularExpression kLine(u"^((?:[A-Za-z][A-Za-z0-9.]*=[^;]*;)+) (.+)$"_s);
    const QRegularExpressionMatch match = kLine.match(line);
    if (!match.hasMatch()) return std::nullopt;
    RemoteEntry entry{.wire_name = match.captured(2).toLatin1()};
    for (const QString& fact : match.captured(1).split(u';', Qt::SkipEmptyParts)) {
        const QString key = fact.section(u'=', 0, 0).toLower();
        const QString value = fact.section(u'=', 1).toLower();
        if (key == u"type") {
            if (value != u"file" && value != u"dir") return std::nullopt;
            entry.folder = value == u"dir";
        } else if (key == u"size") {
            bool number = false;
            const qint64 size = value.toLongLong(&number);
            if (number) entry.size = size;
        }
    }
    return entry;
}

/// "-rw-r--r--   1 user  group  120 Jan 02 12:00 name"; owner or group may be missing, the date may be "2024-01-02
/// 12:00".
std::optional<RemoteEntry> unix_entry(const Line& line) {
    static const QRegularExpression kLine(
        u"^([-d])[-rwxsStTlL]{9}[+.@]?\\s+(?:\\d+\\s+)?(?:\\S+\\s+){0,3}?(\\d+)\\s+"
        u"(?:[^\\s\\d]{3,9}\\.?\\s+\\d{1,2}|\\d{1,2}\\.?\\s+[^\\s\\d]{3,9}|\\d{4}-\\d\\d-\\d\\d)\\s+"
        u"(?:\\d{1,2}:\\d\\d(?::\\d\\d)?|\\d{4}) (.+)$"_s);
    const QRegularExpressionMatch match = kLine.match(line);
    if (!match.hasMatch()) return std::nullopt;
    RemoteEntry entry{.folder = match.captured(1) == u"d", .wire_name = match.captured(3).toLatin1()};
    if (!entry.folder) entry.size = match.captured(2).toLongLong();
    return entry;
}

/// "01-02-24  03:04PM       <DIR>          name"
std::optional<RemoteEntry> windows_entry(const Line& line) {
    static const QRegularExpression kLine(
        u"^\\d{2,4}-\\d\\d-\\d{2,4}\\s+\\d{1,2}:\\d\\d(?:\\s?[AaPp][Mm])?\\s+(<DIR>|[\\d.,]+)\\s+(.+)$"_s);
    const QRegularExpressionMatch match = kLine.match(line);
    if (!match.hasMatch()) return std::nullopt;
    RemoteEntry entry{.folder = match.captured(1) == u"<DIR>", .wire_name = match.captured(2).toLatin1()};
    if (!entry.folder) entry.size = match.captured(1).remove(u'.').remove(u',').toLongLong();
    return entry;
}

/// A name's characters. What looks like a byte order mark is none within a text, and names have none.
QString name_of(const QByteArray& wire_name) {
    return decode_text('-' + wire_name).text.sliced(1);
}

}  // namespace

RemoteListing parse_listing(const QByteArray& bytes) {
    RemoteListing listing;
    for (QByteArray line : bytes.split('\n')) {
        if (line.endsWith('\r')) line.chop(1);
        if (line.isEmpty()) continue;
        listing.text += decode_text(line).text + u"\r\n"_s;

        if (line.size() > kLongestLine) continue;
        const Line text = QString::fromLatin1(line);
        std::optional<RemoteEntry> entry = machine_entry(text);
        if (!entry) entry = unix_entry(text);
        if (!entry) entry = windows_entry(text);
        if (!entry) continue;
        entry->name = name_of(entry->wire_name);
        if (is_plain_name(entry->name) && !is_temporary_name(entry->name)) listing.entries << *entry;
    }
    return listing;
}

}  // namespace pondera
