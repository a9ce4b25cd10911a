#include "publish/transfer/ftp_session.h"

#include <algorithm>
#include <utility>

#include "base/text_file.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kLongestListing = 64 << 20;
constexpr int kNoSuchFile = 550;
constexpr int kNameNotAllowed = 553;

/// Whether a reply to FEAT lists a feature.
bool has_feature(const FtpReply& reply, const QByteArray& feature) {
    return std::ranges::any_of(reply.text.toUpper().split('\n'), [&feature](const QByteArray& line) {
        return line == feature || line.startsWith(feature + ' ');
    });
}

QByteArrayList rename_commands(const QByteArray& from, const QByteArray& to) {
    return {"RNFR " + from, "RNTO " + to};
}

/// What a request that may have renamed says.
TransferResult<void> renamed(const CurlAnswer& answer) {
    const FtpReply* const first = answer.talk.reply_to("RNFR");
    // The second command's "wrong order" says nothing; the first one's refusal does.
    if (answer.result == CURLE_OK && first != nullptr && !first->good() && !answer.talk.closing())
        return std::unexpected(refused(*first));
    return result_of(answer);
}

}  // namespace

FtpSession::FtpSession(const TransferLogin& login, const TransferWaits& waits, Interruption& interruption,
                       SessionWatch watch)
    : curl_(login, waits, interruption, std::move(watch)) {
}

TransferResult<void> FtpSession::open() {
    if (curl_.connected()) return {};
    curl_.drop();
    const CurlAnswer answer = curl_.perform({.commands = {"FEAT"}});
    const FtpReply* const features = answer.talk.reply_to("FEAT");
    // A server that does not know FEAT is none the worse.
    if (features == nullptr || answer.result != CURLE_OK || answer.talk.closing()) {
        const TransferResult<void> result = result_of(answer);
        return result ? std::unexpected(fault(kConnectionEnded)) : result;
    }
    const QString home = decode_text(answer.home).text;
    home_ = has_control_characters(home) ? u"/"_s : resolve_remote(u"/"_s, home);
    machine_listings_ = has_feature(*features, "MLST") || has_feature(*features, "MLSD");
    if (has_feature(*features, "UTF8")) {
        const TransferResult<void> said = result_of(curl_.perform({.commands = {"OPTS UTF8 ON"}}));
        if (!said && said.error().code != kServerAnsweredError) return said;
    }
    was_open_ = true;
    return {};
}

QByteArray FtpSession::wire(const QString& path) const {
    QByteArrayList parts;
    for (const QString& part : path.split(u'/')) parts << wire_names_.value(part, part.toUtf8());
    return parts.join('/');
}

QByteArray FtpSession::url_path(const QString& path) const {
    return wire(path).toPercentEncoding("/");
}

TransferResult<void> FtpSession::command(const QByteArray& verb, const QString& path) {
    return result_of(curl_.perform({.commands = {verb + ' ' + wire(path)}}));
}

TransferResult<void> FtpSession::enter(const QString& folder) {
    const QString path = folder.endsWith(u'/') ? folder : folder + u'/';
    return result_of(curl_.perform({.path = url_path(path), .enter_folder = true}));
}

TransferResult<void> FtpSession::make_folder(const QString& folder) {
    return command("MKD", folder);
}

TransferResult<void> FtpSession::remove_folder(const QString& folder) {
    return command("RMD", folder);
}

TransferResult<void> FtpSession::remove_file(const QString& path) {
    return command("DELE", path);
}

void FtpSession::discard(const QString& path) {
    curl_.perform({.commands = {"DELE " + wire(path)}});
}

TransferResult<RemoteListing> FtpSession::list(const QString& folder) {
    QByteArray bytes;
    const CurlAnswer answer = curl_.perform({
        .path = url_path(folder.endsWith(u'/') ? folder : folder + u'/'),
        .enter_folder = true,
        .listing = machine_listings_ ? "MLSD" : "LIST",
        .sink =
            [&bytes](const char* part, qint64 count) {
                bytes.append(part, count);
                return bytes.size() <= kLongestListing;
            },
    });
    if (const TransferResult<void> result = result_of(answer); !result) return std::unexpected(result.error());
    RemoteListing listing = parse_listing(bytes);
    for (const RemoteEntry& entry : std::as_const(listing.entries))
        if (entry.wire_name != entry.name.toUtf8()) wire_names_.insert(entry.name, entry.wire_name);
    return listing;
}

TransferResult<void> FtpSession::fetch(const QString& path, IncomingFile& file) {
    bool written = true;
    const CurlAnswer answer = curl_.perform({
        .path = url_path(path),
        .sink = [&](const char* part, qint64 count) { return written = file.write(part, count); },
    });
    if (!written) return std::unexpected(local_fault(file.error()));
    return result_of(answer);
}

TransferResult<void> FtpSession::upload(OutgoingFile& file, const QString& path, const QString& name, bool& whole) {
    whole = false;
    if (const FileResult<void> opened = file.open(); !opened) return std::unexpected(local_fault(opened.error()));
    bool same = true;
    const CurlAnswer answer = curl_.perform({
        .path = url_path(path),
        .afterwards = name.isEmpty() ? QByteArrayList() : rename_commands(wire(path), wire(name)),
        .source =
            [&](char* bytes, qint64 room) {
                const qint64 count = file.read(bytes, room);
                same = count >= 0;
                return count;
            },
        .source_size = file.size(),
    });
    if (!same) return std::unexpected(fault(kFileChanged));
    whole = answer.talk.reply_to("RNFR") != nullptr;
    return renamed(answer);
}

TransferResult<void> FtpSession::upload(OutgoingFile& file, const QString& path) {
    bool whole = false;
    return upload(file, path, {}, whole);
}

TransferResult<void> FtpSession::rename(const QString& from, const QString& to) {
    return renamed(curl_.perform({.commands = rename_commands(wire(from), wire(to))}));
}

TransferResult<void> FtpSession::send(OutgoingFile& file, const QString& path) {
    if (renaming_ == Renaming::kNever) return upload(file, path);
    const QString temporary = temporary_beside(path);
    bool whole = false;
    TransferResult<void> result = upload(file, temporary, path, whole);
    if (result) return result;
    const bool refusal = result.error().code == kServerAnsweredError;
    if (whole && refusal) {
        result = make_way(temporary, path, result.error());
        if (result || renaming_ != Renaming::kNever) return result;
        discard(temporary);
        return upload(file, path);
    }
    // A server may let files be written over in a folder where it lets none be made.
    const bool not_this_name = refusal && (result.error().text.startsWith(QString::number(kNameNotAllowed)) ||
                                           result.error().text.startsWith(QString::number(kNoSuchFile)));
    if (not_this_name) return upload(file, path);
    if (curl_.connected()) discard(temporary);
    return result;
}

/// Gives an uploaded file its name where the server refused to. Nothing that is there is deleted before it is certain
/// that renaming works.
TransferResult<void> FtpSession::make_way(const QString& whole, const QString& path, const TransferFault& refusal) {
    const QString other = temporary_beside(whole);
    if (renaming_ == Renaming::kOverFiles) {
        const TransferResult<void> free_name = rename(whole, other);
        if (!free_name) {
            if (free_name.error().code == kServerAnsweredError) renaming_ = Renaming::kNever;
            return free_name;
        }
    }
    const QString& ready = renaming_ == Renaming::kOverFiles ? other : whole;
    if (const TransferResult<void> deleted = remove_file(path); !deleted) {
        discard(ready);
        return std::unexpected(refusal);
    }
    const TransferResult<void> result = rename(ready, path);
    if (result) renaming_ = Renaming::kToFreeNames;
    return result;
}

}  // namespace pondera
