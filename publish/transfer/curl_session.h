#pragma once

#include <QByteArrayList>
#include <QString>

#include <curl/curl.h>
#include <functional>

#include "publish/transfer/certificate_check.h"
#include "publish/transfer/ftp_talk.h"
#include "publish/transfer/host_key_check.h"
#include "publish/transfer/interruption.h"
#include "publish/transfer/transfer_login.h"
#include "publish/transfer/transfer_outcome.h"

namespace pondera {

/// What a session tells of while it works; called on the session's thread.
struct SessionWatch {
    std::function<void(InternetState)> state;
    std::function<void(qint64 now, qint64 total)> progress;
    std::function<void()> idle;  ///< again and again while the server is waited for
};

/// One request to libcurl. Without a source or a sink only its commands are sent.
struct CurlRequest {
    QByteArray path = "/";        ///< percent-encoded, absolute
    bool enter_folder = false;    ///< the path is a folder, and becomes the server's current one
    QByteArrayList commands{};    ///< sent first, in the protocol's own words
    QByteArrayList afterwards{};  ///< sent when the source has gone up whole
    QByteArray listing{};         ///< the command for a listing in place of the usual one
    std::function<bool(const char* bytes, qint64 count)> sink{};  ///< false ends the request
    std::function<qint64(char* bytes, qint64 room)> source{};     ///< gives the count; below 0 ends the request
    qint64 source_size = 0;
    qint64 largest = 0;  ///< a file that the server says is larger is not begun; 0 for no bound
};

enum class CurlEnd { kItself, kInterrupted, kTooSlow, kEndlessReply, kNoConnection };

/// What is known of an SSH server beside libcurl's result.
struct SshTalk {
    bool spoken = false;         ///< the protocol is SFTP
    bool greeted = false;        ///< it has shown its key, in this request or an earlier one
    QByteArray login_methods{};  ///< which it offers, by their names, joined by ","; empty while it has not said
    bool hung_up = false;        ///< the connection was closed by the server, not by this side
};

struct CurlAnswer {
    CURLcode result = CURLE_OK;
    CurlEnd end = CurlEnd::kItself;
    bool afterwards_begun = false;  ///< the source has gone up whole
    FtpTalk talk{};
    SshTalk ssh{};      ///< SFTP says nothing in `talk`
    QString message{};  ///< libcurl's words for its result
    int os_error = 0;   ///< errno, where the system refused
    QByteArray home{};  ///< the folder that the server gave at the login
};

/// A libcurl session: one connection to one server, kept between requests, driven on the calling thread. A wait ends by
/// the bounds of `TransferWaits` or by the interruption.
class CurlSession {
  public:
    CurlSession(TransferLogin login, TransferWaits waits, Interruption& interruption, SessionWatch watch);
    ~CurlSession();
    CurlSession(const CurlSession&) = delete;
    CurlSession& operator=(const CurlSession&) = delete;

    CurlAnswer perform(const CurlRequest& request);

    /// Whether the connection of an earlier request can be used again. The server's farewell while nobody asked ends
    /// it.
    [[nodiscard]] bool connected() const;
    /// Closes the connection; waits for nothing.
    void drop();

    /// How the line is protected; after a certificate that was not trusted, whose it is.
    [[nodiscard]] const LineProtection& protection() const { return protection_; }

  private:
    struct Running;
    friend struct CurlHooks;

    [[nodiscard]] bool ssh() const { return login_.host.protocol == HostProtocol::kSftp; }
    void configure(const CurlRequest& request);
    void configure_ftp(const CurlRequest& request);
    void configure_sftp();
    void drive(Running& running);
    void note_tls(CURL* easy, const FtpTalk& talk);
    void note_doubt();

    TransferLogin login_;
    TransferWaits waits_;
    Interruption& interruption_;
    SessionWatch watch_;
    CertificateCheck check_;
    HostKeyCheck key_check_;
    LineProtection protection_;
    CURLM* multi_ = nullptr;
    CURL* easy_ = nullptr;
    int control_socket_ = -1;
    bool was_protected_ = false;  ///< a login went over a protected line: none goes over an open one after it
    long protection_level_ = 0;   ///< libcurl's, one for all requests of a connection
    bool hung_up_ = false;        ///< the server has closed a connection since the request began
};

}  // namespace pondera
