#include "publish/transfer/ftp_session.h"

#include <algorithm>

namespace pondera {
namespace {

/// Whether a reply to FEAT lists a feature.
bool has_feature(const FtpReply& reply, const QByteArray& feature) {
    return std::ranges::any_of(reply.text.toUpper().split('\n'), [&feature](const QByteArray& line) {
        return line == feature || line.startsWith(feature + ' ');
    });
}

}  // namespace

TransferResult<void> FtpSession::open() {
    if (curl().connected()) return {};
    curl().drop();
    const CurlAnswer answer = curl().perform({.commands = {"FEAT"}});
    const FtpReply* const features = answer.talk.reply_to("FEAT");
    // A server that does not know FEAT is none the worse.
    if (features == nullptr || answer.result != CURLE_OK || answer.talk.closing()) {
        const TransferResult<void> result = result_of(answer);
        return result ? std::unexpected(fault(kConnectionEnded)) : result;
    }
    machine_listings_ = has_feature(*features, "MLST") || has_feature(*features, "MLSD");
    if (has_feature(*features, "UTF8")) {
        const TransferResult<void> said = result_of(curl().perform({.commands = {"OPTS UTF8 ON"}}));
        if (!said && said.error().code != kServerAnsweredError) return said;
    }
    opened(answer.home);
    return {};
}

QByteArrayList FtpSession::commands_for(RemoteChange change, const QByteArray& path, const QByteArray& to) const {
    switch (change) {
        case RemoteChange::kMakeFolder:
            return {"MKD " + path};
        case RemoteChange::kRemoveFolder:
            return {"RMD " + path};
        case RemoteChange::kRemoveFile:
            return {"DELE " + path};
        case RemoteChange::kRename:
            break;
    }
    return {"RNFR " + path, "RNTO " + to};
}

TransferResult<RemoteListing> FtpSession::list(const QString& folder) {
    return list_by(folder,
                   {.path = url_folder(folder), .enter_folder = true, .listing = machine_listings_ ? "MLSD" : "LIST"});
}

TransferResult<void> FtpSession::enter(const QString& folder) {
    return result_of(curl().perform({.path = url_folder(folder), .enter_folder = true}));
}

}  // namespace pondera
