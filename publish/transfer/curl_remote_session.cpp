#include "publish/transfer/curl_remote_session.h"

#include <tuple>
#include <utility>

#include "base/text_file.h"
#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qsizetype kLongestListing = 64 << 20;

}  // namespace

CurlRemoteSession::CurlRemoteSession(const TransferLogin& login, const TransferWaits& waits, Interruption& interruption,
                                     SessionWatch watch)
    : curl_(login, waits, interruption, std::move(watch)) {
}

void CurlRemoteSession::opened(const QByteArray& home) {
    const QString folder = decode_text(home).text;
    home_ = has_control_characters(folder) ? u"/"_s : resolve_remote(u"/"_s, folder);
    was_open_ = true;
}

QByteArray CurlRemoteSession::wire(const QString& path) const {
    QByteArrayList parts;
    QString so_far;
    for (const QString& part : path.split(u'/', Qt::SkipEmptyParts)) {
        so_far += u'/' + part;
        parts << wire_names_.value(so_far, part.toUtf8());
    }
    const QByteArray end = path.endsWith(u'/') && !parts.isEmpty() ? "/" : "";
    return '/' + parts.join('/') + end;
}

QByteArray CurlRemoteSession::url_path(const QString& path) const {
    return wire(path).toPercentEncoding("/");
}

QByteArray CurlRemoteSession::url_folder(const QString& folder) const {
    return url_path(folder.endsWith(u'/') ? folder : folder + u'/');
}

TransferResult<void> CurlRemoteSession::change(RemoteChange change, const QString& path, const QString& to) {
    return result_of(curl_.perform({.commands = commands_for(change, wire(path), wire(to))}));
}

TransferResult<void> CurlRemoteSession::make_folder(const QString& folder) {
    return change(RemoteChange::kMakeFolder, folder);
}

TransferResult<void> CurlRemoteSession::remove_folder(const QString& folder) {
    return change(RemoteChange::kRemoveFolder, folder);
}

TransferResult<void> CurlRemoteSession::remove_file(const QString& path) {
    return change(RemoteChange::kRemoveFile, path);
}

void CurlRemoteSession::discard(const QString& path) {
    // What was refused may have cost the connection.
    if (open()) std::ignore = remove_file(path);
}

TransferResult<RemoteListing> CurlRemoteSession::list_by(const QString& folder, CurlRequest request) {
    QByteArray bytes;
    request.sink = [&bytes](const char* part, qint64 count) {
        bytes.append(part, count);
        return bytes.size() <= kLongestListing;
    };
    const CurlAnswer answer = curl_.perform(request);
    if (bytes.size() > kLongestListing)
        return std::unexpected(
            TransferFault{.code = kServerAnsweredError, .text = u"The list of this folder is too long."_s});
    if (const TransferResult<void> result = result_of(answer); !result) return std::unexpected(result.error());
    RemoteListing listing = parse_listing(bytes);
    for (const RemoteEntry& entry : std::as_const(listing.entries)) {
        const QString path = resolve_remote(folder, entry.name);
        if (entry.wire_name == entry.name.toUtf8())
            wire_names_.remove(path);
        else
            wire_names_.insert(path, entry.wire_name);
    }
    return listing;
}

TransferResult<void> CurlRemoteSession::fetch(const QString& path, IncomingFile& file) {
    bool written = true;
    const CurlAnswer answer = curl_.perform({
        .path = url_path(path),
        .sink = [&](const char* part, qint64 count) { return written = file.write(part, count); },
        .largest = IncomingFile::kLargest,
    });
    if (file.too_large() || answer.result == CURLE_FILESIZE_EXCEEDED)
        return std::unexpected(TransferFault{.code = kServerAnsweredError, .text = u"The file is larger than 1 GB."_s});
    if (!written) return std::unexpected(local_fault(file.error()));
    return result_of(answer);
}

TransferResult<void> CurlRemoteSession::upload(OutgoingFile& file, const QString& path, const QString& name,
                                               bool& whole) {
    whole = false;
    if (const FileResult<void> opened = file.open(); !opened) return std::unexpected(local_fault(opened.error()));
    bool same = true;
    const CurlAnswer answer = curl_.perform({
        .path = url_path(path),
        .afterwards = name.isEmpty() ? QByteArrayList() : commands_for(RemoteChange::kRename, wire(path), wire(name)),
        .source =
            [&](char* bytes, qint64 room) {
                const qint64 count = file.read(bytes, room);
                same = count >= 0;
                return count;
            },
        .source_size = file.size(),
    });
    if (!same) return std::unexpected(fault(kFileChanged));
    whole = answer.afterwards_begun;
    return result_of(answer);
}

TransferResult<void> CurlRemoteSession::upload(OutgoingFile& file, const QString& path) {
    bool whole = false;
    return upload(file, path, {}, whole);
}

TransferResult<void> CurlRemoteSession::send(OutgoingFile& file, const QString& path) {
    if (renaming_ == Renaming::kNever) return upload(file, path);
    const QString temporary = temporary_beside(path);
    bool whole = false;
    TransferResult<void> result = upload(file, temporary, path, whole);
    if (result) return result;
    if (whole && result.error().code == kServerAnsweredError) {
        result = make_way(temporary, path, result.error());
        if (result || renaming_ != Renaming::kNever) return result;
        discard(temporary);
        return upload(file, path);
    }
    // A server may let files be written over in a folder where it lets none be made.
    if (result.error().name_refused) return upload(file, path);
    if (!result.error().broken && result.error().code != kCancelled) discard(temporary);
    return result;
}

/// Gives an uploaded file its name where the server refused to. Nothing that is there is deleted before it is certain
/// that renaming works.
TransferResult<void> CurlRemoteSession::make_way(const QString& whole, const QString& path,
                                                 const TransferFault& refusal) {
    const QString other = temporary_beside(whole);
    if (renaming_ == Renaming::kOverFiles) {
        // One that an earlier try left would stand in the way.
        std::ignore = remove_file(other);
        const TransferResult<void> free_name = change(RemoteChange::kRename, whole, other);
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
    const TransferResult<void> result = change(RemoteChange::kRename, ready, path);
    if (result) {
        renaming_ = Renaming::kToFreeNames;
    } else if (result.error().code == kServerAnsweredError) {
        // The old file is gone, and visitors must not be left without one.
        renaming_ = Renaming::kNever;
        discard(ready);
    }
    return result;
}

}  // namespace pondera
