#pragma once

#include <QByteArray>
#include <QList>

namespace pondera {

/// One reply of the server, with the command that it answers.
struct FtpReply {
    QByteArray command{};  ///< the verb alone, so that no password is kept; empty for the welcome
    int code = 0;          ///< 0 until the reply is whole
    QByteArray text{};     ///< all lines, joined by "\n"

    [[nodiscard]] bool good() const { return code >= 100 && code < 400; }
};

/// What was said on the control connection during a request, as libcurl reports it.
class FtpTalk {
  public:
    void heard_command(const QByteArray& line);
    void heard_reply(const QByteArray& line);

    /// All replies of the request, in order.
    [[nodiscard]] const QList<FtpReply>& replies() const { return replies_; }
    /// The reply to the last command `verb`; nullptr when it was not sent or not answered.
    [[nodiscard]] const FtpReply* reply_to(const QByteArray& verb) const;
    /// The last reply that is whole; nullptr when there is none.
    [[nodiscard]] const FtpReply* last() const;
    /// Whether the last command was not answered.
    [[nodiscard]] bool waiting() const { return !replies_.isEmpty() && replies_.constLast().code == 0; }
    /// Whether the server said that it closes the connection (421).
    [[nodiscard]] bool closing() const;
    /// Whether the server says more than any server does, so that it is not listened to any longer.
    [[nodiscard]] bool endless() const;

  private:
    QList<FtpReply> replies_;
    qsizetype bytes_ = 0;
};

}  // namespace pondera
