#include "publish/transfer/ssh_faults.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

TransferFault with_sentence(ResponseNumber number, const QString& sentence) {
    return {.code = number, .text = sentence};
}

/// What libcurl says when the line or the server's file program is gone, and no reply can come.
bool lost(const CurlAnswer& answer) {
    constexpr std::array<QStringView, 4> kPhrases = {u"Unknown error in libssh2", u"Connection to SFTP server lost",
                                                     u"Not connected to SFTP server", u"Bad message from SFTP server"};
    return answer.ssh.hung_up ||
           std::ranges::any_of(kPhrases, [&](QStringView phrase) { return answer.message.contains(phrase); });
}

TransferFault login_fault(const SshTalk& talk) {
    const bool by_password =
        talk.login_methods.contains("password") || talk.login_methods.contains("keyboard-interactive");
    if (!talk.login_methods.isEmpty() && !by_password)
        return with_sentence(kLoginFailed, u"The server lets nobody in by a password, only by a key."_s);
    return with_sentence(kPasswordRefused, u"The server does not accept the user name or the password."_s);
}

/// The protocol has numbers for refusals, which libcurl turns into results for files and into phrases for commands.
TransferFault refusal(const CurlAnswer& answer) {
    struct Row {
        CURLcode result;
        QStringView phrase;
        QStringView sentence;
    };
    static constexpr std::array kRows = {
        Row{CURLE_REMOTE_FILE_NOT_FOUND, u"No such file or directory", u"There is no such file or folder."},
        Row{CURLE_REMOTE_ACCESS_DENIED, u"Permission denied", u"The server does not permit this."},
        Row{CURLE_REMOTE_DISK_FULL, u"Disk full", u"The server has no space left."},
        Row{CURLE_REMOTE_DISK_FULL, u"User quota exceeded", u"The server has no space left."},
        Row{CURLE_REMOTE_FILE_EXISTS, u"File already exists", u"There is a file or folder of this name."},
    };
    const auto row = std::ranges::find_if(kRows, [&answer](const Row& each) {
        return answer.result == each.result || answer.message.contains(each.phrase);
    });
    TransferFault result = with_sentence(kServerAnsweredError, u"The server refuses this."_s);
    if (row != kRows.end()) result.text = row->sentence.toString();
    // While a file goes up libcurl has no words for the server's.
    if (answer.message.isEmpty() && answer.result == CURLE_SSH)
        result.text = u"The server took only a part of the file: it seems to have no space left."_s;
    result.name_refused = answer.message.startsWith(u"Upload failed") && answer.result != CURLE_REMOTE_DISK_FULL;
    return result;
}

}  // namespace

TransferFault fault_of_ssh(const CurlAnswer& answer) {
    if (answer.end == CurlEnd::kTooSlow && answer.ssh.greeted) return broken(kTimedOut);
    if (answer.end == CurlEnd::kTooSlow)
        return with_sentence(kTimedOut, u"There is no answer by SFTP at this address."_s);
    if (answer.result == CURLE_LOGIN_DENIED) return login_fault(answer.ssh);
    if (!answer.ssh.greeted && answer.ssh.hung_up) return broken(kConnectionEnded);
    if (!answer.ssh.greeted) return with_sentence(kCannotConnect, u"There is no SFTP at this address."_s);
    if (lost(answer)) return broken(kConnectionEnded);
    if (answer.result == CURLE_FAILED_INIT)
        return with_sentence(kLoginFailed, u"The server accepts the login, but offers no SFTP."_s);
    return refusal(answer);
}

}  // namespace pondera
