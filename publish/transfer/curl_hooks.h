#pragma once

#include <chrono>

#include "publish/transfer/curl_session.h"

namespace pondera {

/// A request while it runs.
struct CurlSession::Running {
    using Clock = std::chrono::steady_clock;

    CurlSession& session;
    const CurlRequest& request;
    CURL* easy;
    bool continues;            ///< the connection of an earlier request is used
    bool greeted = continues;  ///< the server has said a word, now or in an earlier request
    bool asked = false;
    bool replied = false;
    bool data_promised = false;  ///< the server has told where to connect to for data, and that is still to be done
    Clock::time_point last_byte = Clock::now();
    qint64 moved = 0;
    CurlAnswer answer{};

    void heard_byte() { last_byte = Clock::now(); }
    /// The server has said its first word; something was asked of it; it has answered. Each is told once.
    void greet();
    void ask();
    void hear();
    /// Whether the request is to go on; notes in the answer why not.
    bool go_on();

    /// The data connection whose first bytes are kept back: libcurl greets for TLS on it before it has told the server
    /// what the connection is for, and a server may take that for an intruder. They go when the server has replied to
    /// the command, or is quiet after it.
    int held_socket = -1;
    bool data_asked = false;
    void hold(int socket);
    void let_go();
};

/// Whether the other side has ended a connection.
[[nodiscard]] bool has_hung_up(int socket);

/// The functions through which libcurl tells of a request and moves its bytes.
struct CurlHooks {
    using Running = CurlSession::Running;

    static void install(Running& running);

    static int resolving(void* resolver, void* reserved, void* running);
    static curl_socket_t open_socket(void* running, curlsocktype purpose, curl_sockaddr* address);
    static int close_socket(void* session, curl_socket_t socket);
    static int said(CURL* easy, curl_infotype kind, char* bytes, size_t count, void* running);
    static int moved(void* running, curl_off_t down_all, curl_off_t down, curl_off_t up_all, curl_off_t up);
    static size_t receive(char* bytes, size_t size, size_t count, void* running);
    static size_t send(char* bytes, size_t size, size_t count, void* running);
    static int judge_host_key(void* running, int kind, const char* key, size_t count);
    static CURLcode judge_certificates(CURL* easy, void* context, void* session);
};

}  // namespace pondera
