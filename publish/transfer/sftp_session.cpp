#include "publish/transfer/sftp_session.h"

namespace pondera {
namespace {

/// A path as a word of libcurl's commands: they are cut at blanks outside of quotes.
QByteArray word(const QByteArray& path) {
    return '"' + QByteArray(path).replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

}  // namespace

TransferResult<void> SftpSession::open() {
    if (curl().connected()) return {};
    curl().drop();
    const CurlAnswer answer = curl().perform({});
    const TransferResult<void> result = result_of(answer);
    if (result) opened(answer.home);
    return result;
}

QByteArrayList SftpSession::commands_for(RemoteChange change, const QByteArray& path, const QByteArray& to) const {
    switch (change) {
        case RemoteChange::kMakeFolder:
            return {"mkdir " + word(path)};
        case RemoteChange::kRemoveFolder:
            return {"rmdir " + word(path)};
        case RemoteChange::kRemoveFile:
            return {"rm " + word(path)};
        case RemoteChange::kRename:
            break;
    }
    return {"rename " + word(path) + ' ' + word(to)};
}

TransferResult<RemoteListing> SftpSession::list(const QString& folder) {
    return list_by(folder, {.path = url_folder(folder)});
}

/// The protocol knows no current folder: one whose entries can be told can be entered.
TransferResult<void> SftpSession::enter(const QString& folder) {
    const TransferResult<RemoteListing> listed = list(folder);
    return listed ? TransferResult<void>() : std::unexpected(listed.error());
}

}  // namespace pondera
