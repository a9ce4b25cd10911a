#include "publish/transfer/ftp_talk.h"

#include <algorithm>
#include <ranges>

namespace pondera {
namespace {

constexpr qsizetype kLongestTalk = 1 << 20;
constexpr int kServiceCloses = 421;

/// The number with which the last line of a reply begins; 0 for every other line.
int code_of(const QByteArray& line) {
    constexpr qsizetype kDigits = 3;
    const bool is_last = line.size() > kDigits && line[kDigits] == ' ' &&
                         std::all_of(line.begin(), line.begin() + kDigits, [](char c) { return c >= '0' && c <= '9'; });
    return is_last ? line.first(kDigits).toInt() : 0;
}

}  // namespace

void FtpTalk::heard_command(const QByteArray& line) {
    const QByteArray trimmed = line.trimmed();
    replies_ << FtpReply{.command = trimmed.first(std::max<qsizetype>(trimmed.indexOf(' '), 0)), .text = {}};
    if (replies_.last().command.isEmpty()) replies_.last().command = trimmed;
}

void FtpTalk::heard_reply(const QByteArray& line) {
    bytes_ += line.size();
    if (endless()) return;
    // A reply that nothing was sent for is the welcome, or a farewell.
    if (replies_.isEmpty() || replies_.last().code >= 200) replies_ << FtpReply{};
    FtpReply& reply = replies_.last();
    // "150 opening" and "226 done" answer the same command: the second stands.
    if (reply.code != 0) reply.text.clear();
    reply.text += (reply.text.isEmpty() ? "" : "\n") + line.trimmed();
    reply.code = code_of(line);
}

const FtpReply* FtpTalk::reply_to(const QByteArray& verb) const {
    for (const FtpReply& reply : replies_ | std::views::reverse)
        if (reply.command == verb && reply.code != 0) return &reply;
    return nullptr;
}

const FtpReply* FtpTalk::last() const {
    for (const FtpReply& reply : replies_ | std::views::reverse)
        if (reply.code != 0) return &reply;
    return nullptr;
}

bool FtpTalk::closing() const {
    return std::ranges::any_of(replies_, [](const FtpReply& reply) { return reply.code == kServiceCloses; });
}

bool FtpTalk::endless() const {
    return bytes_ > kLongestTalk;
}

}  // namespace pondera
