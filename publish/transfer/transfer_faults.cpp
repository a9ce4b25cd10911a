#include "publish/transfer/transfer_faults.h"

#include <QHash>

#include <cerrno>

#include "base/text_file.h"
#include "publish/connection/win_inet_texts.h"
#include "publish/transfer/ssh_faults.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr int kNotLoggedIn = 530;
constexpr int kNoSuchFile = 550;
constexpr int kNameNotAllowed = 553;

TransferFault login_fault(const FtpTalk& talk) {
    const FtpReply* const last = talk.last();
    if (last == nullptr) return fault(kLoginFailed);
    TransferFault result = fault(last->command == "USER"                                 ? kUserRefused
                                 : last->command == "PASS" && last->code == kNotLoggedIn ? kPasswordRefused
                                                                                         : kLoginFailed);
    result.text += u' ' + decode_text(last->text).text;
    return result;
}

/// The last reply with which the server refused something; nullptr when there is none.
const FtpReply* refusal(const FtpTalk& talk) {
    // The second command of a renaming answers "wrong order" then, which says nothing; the first one's refusal does.
    const FtpReply* const renaming = talk.reply_to("RNFR");
    if (renaming != nullptr && !renaming->good()) return renaming;
    const FtpReply* const last = talk.last();
    return last != nullptr && !last->good() ? last : nullptr;
}

/// Whether a greeting for TLS failed because both sides have nothing in common, and not because the line broke in it.
bool finds_no_protection(const CurlAnswer& answer) {
    // With these words libcurl has no fault of TLS to name, only one of the line.
    const bool cut = answer.message.contains(u"SSL_connect: ") || answer.message.contains(u"unexpected eof") ||
                     answer.message.startsWith(u"Recv failure: ") || answer.message.startsWith(u"Send failure: ");
    const FtpReply* const last = answer.talk.last();
    return !cut && last != nullptr && last->command == "AUTH";
}

TransferFault ended(const CurlAnswer& answer) {
    TransferFault result = broken(answer.os_error == ECONNRESET ? kConnectionReset : kConnectionEnded);
    const FtpReply* const last = answer.talk.last();
    result.file_cut = last != nullptr && last->code >= 100 && last->code < 200;
    return result;
}

/// The server said where to connect to for files, and that came to nothing, as firewalls have it.
bool lacks_data_connection(const FtpTalk& talk) {
    const FtpReply* const last = talk.last();
    return last != nullptr && !talk.waiting() && last->good() && (last->command == "EPSV" || last->command == "PASV");
}

TransferFault without_data_connection() {
    TransferFault result = broken(kConnectionEnded);
    result.text = u"The server answers, but no connection for files can be made."_s;
    return result;
}

}  // namespace

TransferFault fault(ResponseNumber number) {
    static const QHash<int, QString> kSentences = {
        {kTimedOut, u"The server does not answer."_s},
        {kBadAddress, u"This is not the name of a server."_s},
        {kUnknownScheme, u"Only servers for FTP and SFTP can be reached."_s},
        {kNameNotResolved, u"There is no server of this name, or the network is off."_s},
        {kUserRefused, u"The server does not accept the user name."_s},
        {kPasswordRefused, u"The server does not accept the password."_s},
        {kLoginFailed, u"The server does not accept the login."_s},
        {kNotAllowed, u"Files are only brought into the folder of the Website."_s},
        {kCancelled, u"Cancelled."_s},
        {kFileChanged, u"The file changed while it was sent."_s},
        {kBadCommand, u"This command is not known, or its names cannot be told apart."_s},
        {kLocalFileMissing, u"The file does not exist."_s},
        {kCannotConnect, u"The server cannot be reached."_s},
        {kConnectionEnded, u"The server has ended the connection."_s},
        {kConnectionReset, u"The connection has been broken off."_s},
        {kCertificateNotTrusted, u"The server cannot prove that it is the one it says it is."_s},
        {kNoProtection, u"The server offers no protected connection."_s},
    };
    return {.code = number, .text = kSentences.value(number, win_inet_text(number))};
}

TransferFault broken(ResponseNumber number) {
    TransferFault result = fault(number);
    result.broken = true;
    return result;
}

TransferFault cut_each_time(bool upwards) {
    return {.code = kServerAnsweredError,
            .text = upwards ? u"There may be no room left for it: the server broke it off each time."_s
                            : u"The server broke it off each time."_s,
            .file_cut = true};
}

TransferFault refused(const FtpReply& reply) {
    return {.code = kServerAnsweredError,
            .text = decode_text(reply.text).text,
            .name_refused = reply.code == kNoSuchFile || reply.code == kNameNotAllowed};
}

TransferFault local_fault(const FileError& error) {
    constexpr unsigned kLowBits = 0xFFFF;
    const bool missing = error.number == FaultNumber::kFileNotFound || error.number == FaultNumber::kPathNotFound;
    return {.code = missing ? kLocalFileMissing : static_cast<int>(static_cast<unsigned>(error.number) & kLowBits),
            .text = fault_sentence(error)};
}

TransferResult<void> result_of(const CurlAnswer& answer) {
    switch (answer.end) {
        case CurlEnd::kInterrupted:
            return std::unexpected(fault(kCancelled));
        case CurlEnd::kTooSlow:
            if (lacks_data_connection(answer.talk)) return std::unexpected(without_data_connection());
            return std::unexpected(answer.ssh.spoken ? fault_of_ssh(answer) : broken(kTimedOut));
        case CurlEnd::kEndlessReply:
            return std::unexpected(fault(kConnectionEnded));
        case CurlEnd::kNoConnection:
            return std::unexpected(broken(kConnectionEnded));
        case CurlEnd::kItself:
            break;
    }
    if (answer.talk.closing()) {
        TransferFault result = broken(kConnectionEnded);
        if (const FtpReply* const last = answer.talk.last()) result.text = decode_text(last->text).text;
        return std::unexpected(result);
    }
    const FtpReply* const refused_reply = refusal(answer.talk);
    switch (answer.result) {
        case CURLE_OK:
            if (refused_reply != nullptr) return std::unexpected(refused(*refused_reply));
            return {};
        case CURLE_URL_MALFORMAT:
            return std::unexpected(fault(kBadAddress));
        case CURLE_COULDNT_RESOLVE_HOST:
            return std::unexpected(broken(kNameNotResolved));
        case CURLE_COULDNT_CONNECT:
            if (lacks_data_connection(answer.talk)) return std::unexpected(without_data_connection());
            return std::unexpected(answer.talk.last() != nullptr ? ended(answer) : broken(kCannotConnect));
        case CURLE_OPERATION_TIMEDOUT:
        case CURLE_FTP_ACCEPT_TIMEOUT:
            return std::unexpected(broken(kTimedOut));
        case CURLE_LOGIN_DENIED:
            return std::unexpected(answer.ssh.spoken ? fault_of_ssh(answer) : login_fault(answer.talk));
        case CURLE_USE_SSL_FAILED:
            return std::unexpected(fault(kNoProtection));
        case CURLE_PEER_FAILED_VERIFICATION:
            return std::unexpected(fault(kCertificateNotTrusted));
        case CURLE_SSL_CONNECT_ERROR:
            if (finds_no_protection(answer)) return std::unexpected(fault(kNoProtection));
            [[fallthrough]];
        default:
            if (answer.ssh.spoken) return std::unexpected(fault_of_ssh(answer));
            // What the server refused says more than what libcurl could not do therefore, unless it went on after that.
            if (refused_reply != nullptr && !answer.talk.waiting()) return std::unexpected(refused(*refused_reply));
            return std::unexpected(ended(answer));
    }
}

}  // namespace pondera
