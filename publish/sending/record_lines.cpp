#include "publish/sending/record_lines.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kCheckLength = 4;
const QByteArray kTo = "to ";
const QByteArray kFile = "file ";
const QByteArray kBegun = "begun ";
const QByteArray kGone = "gone ";

QByteArray check_of(const QByteArray& key, const QByteArray& body) {
    const quint16 sum = qChecksum(QByteArray(key + '\n' + body));
    return QByteArray::number(sum, 16).rightJustified(kCheckLength, '0');
}

QByteArray line_of(const QString& key, const QByteArray& body) {
    return check_of(key.toUtf8(), body) + ' ' + body + '\n';
}

/// A path on one line: control characters and "%" are percent-encoded.
QByteArray written_path(const QString& path) {
    QByteArray result;
    for (const char c : path.toUtf8()) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || c == '%')
            result += '%' + QByteArray::number(byte, 16).rightJustified(2, '0');
        else
            result += c;
    }
    return result;
}

/// Empty for what is no path within a Website.
QString read_path(const QByteArray& written) {
    const QString path = QString::fromUtf8(QByteArray::fromPercentEncoding(written));
    const bool inside = std::ranges::all_of(path.split(u'/'), is_plain_name);
    return inside ? path : QString();
}

std::optional<PublishedFile> read_file_line(const QByteArray& body) {
    static const QRegularExpression kChecksum(u"^[0-9a-f]{64}$"_s);
    QByteArrayList words = body.split(' ');
    if (words.size() < 5) return std::nullopt;
    bool is_number = false;
    const PublishedFile file{.path = read_path(words.sliced(4).join(' ')),
                             .size = words[1].toLongLong(&is_number),
                             .modified = QDateTime::fromString(QString::fromLatin1(words[2]), Qt::ISODateWithMs),
                             .checksum = words[3]};
    const bool good = is_number && file.size >= 0 && !file.path.isEmpty() && file.modified.isValid() &&
                      kChecksum.match(QString::fromLatin1(file.checksum)).hasMatch();
    return good ? std::optional(file) : std::nullopt;
}

void take_in_line(const QByteArray& body, DestinationState& state) {
    if (body.startsWith(kFile)) {
        const std::optional<PublishedFile> file = read_file_line(body);
        if (!file) return;
        state.files.insert(file->path, *file);
        state.unfinished.remove(file->path);
    } else if (body.startsWith(kBegun)) {
        if (const QString path = read_path(body.sliced(kBegun.size())); !path.isEmpty()) state.unfinished.insert(path);
    } else if (body.startsWith(kGone)) {
        const QString path = read_path(body.sliced(kGone.size()));
        state.files.remove(path);
        state.unfinished.remove(path);
    }
}

}  // namespace

QByteArray destination_line(const QString& key) {
    return line_of({}, kTo + key.toUtf8());
}

QByteArray file_line(const QString& key, const PublishedFile& file) {
    const QByteArray time = file.modified.toUTC().toString(Qt::ISODateWithMs).toLatin1();
    const QByteArrayList words = {QByteArray::number(file.size), time, file.checksum, written_path(file.path)};
    return line_of(key, kFile + words.join(' '));
}

QByteArray begun_line(const QString& key, const QString& path) {
    return line_of(key, kBegun + written_path(path));
}

QByteArray gone_line(const QString& key, const QString& path) {
    return line_of(key, kGone + written_path(path));
}

void take_in(const QByteArray& lines, DestinationStates& states) {
    QByteArray key;
    qsizetype begin = 0;
    for (qsizetype end = lines.indexOf('\n'); end >= 0; end = lines.indexOf('\n', begin)) {
        const QByteArray line = lines.sliced(begin, end - begin);
        begin = end + 1;
        if (line.size() <= kCheckLength + 1) continue;
        const QByteArray body = line.sliced(kCheckLength + 1);
        const bool names_destination = body.startsWith(kTo);
        if (line.first(kCheckLength) != check_of(names_destination ? QByteArray() : key, body)) continue;
        if (names_destination)
            key = body.sliced(kTo.size());
        else if (!key.isEmpty())
            take_in_line(body, states[QString::fromUtf8(key)]);
    }
}

QByteArray lines_of(const DestinationStates& states) {
    QByteArray lines;
    for (auto state = states.cbegin(); state != states.cend(); ++state) {
        lines += destination_line(state.key());
        QStringList paths = state->files.keys();
        std::ranges::sort(paths);
        // What was begun stands behind the files, as a file's line ends its doubt.
        for (const QString& path : paths) lines += file_line(state.key(), state->files[path]);
        QStringList begun = state->unfinished.values();
        std::ranges::sort(begun);
        for (const QString& path : begun) lines += begun_line(state.key(), path);
    }
    return lines;
}

}  // namespace pondera
