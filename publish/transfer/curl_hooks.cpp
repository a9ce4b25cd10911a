#include "publish/transfer/curl_hooks.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace pondera {
namespace {

constexpr int kHeldBack = 128 << 10;

bool is_data_command(const QByteArray& verb) {
    return verb == "STOR" || verb == "RETR" || verb == "LIST" || verb == "MLSD";
}

}  // namespace

bool has_hung_up(int socket) {
    tcp_info info{};
    socklen_t size = sizeof info;
    return ::getsockopt(socket, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 && info.tcpi_state != TCP_ESTABLISHED;
}

bool CurlSession::Running::go_on() {
    if (answer.end != CurlEnd::kItself) return false;
    if (session.interruption_.raised())
        answer.end = CurlEnd::kInterrupted;
    else if (answer.talk.endless())
        answer.end = CurlEnd::kEndlessReply;
    else if (Clock::now() - last_byte > (greeted ? session.waits_.silence : session.waits_.connect))
        answer.end = CurlEnd::kTooSlow;
    // libcurl takes its leave of the server, which may not listen any more.
    if (answer.end != CurlEnd::kItself) session.interruption_.shut_sockets();
    return answer.end == CurlEnd::kItself;
}

void CurlSession::Running::greet() {
    if (!std::exchange(greeted, true)) session.watch_.state(InternetState::kConnected);
}

void CurlSession::Running::ask() {
    if (std::exchange(asked, true)) return;
    session.watch_.state(InternetState::kRequesting);
    session.watch_.state(InternetState::kRequestSent);
}

void CurlSession::Running::hear() {
    if (asked && !std::exchange(replied, true)) session.watch_.state(InternetState::kReceivingResponse);
}

void CurlSession::Running::hold(int socket) {
    const int on = 1;
    held_socket = socket;
    data_asked = false;
    ::setsockopt(socket, IPPROTO_TCP, TCP_CORK, &on, sizeof on);
}

void CurlSession::Running::let_go() {
    const int off = 0;
    if (held_socket >= 0) ::setsockopt(held_socket, IPPROTO_TCP, TCP_CORK, &off, sizeof off);
    held_socket = -1;
}

void CurlHooks::install(Running& running) {
    CURL* const easy = running.easy;
    curl_easy_setopt(easy, CURLOPT_RESOLVER_START_FUNCTION, &CurlHooks::resolving);
    curl_easy_setopt(easy, CURLOPT_RESOLVER_START_DATA, &running);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, &CurlHooks::open_socket);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, &running);
    // A connection is closed long after the request that opened it.
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, &CurlHooks::close_socket);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, &running.session);
    curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, &CurlHooks::said);
    curl_easy_setopt(easy, CURLOPT_DEBUGDATA, &running);
    curl_easy_setopt(easy, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(easy, CURLOPT_XFERINFOFUNCTION, &CurlHooks::moved);
    curl_easy_setopt(easy, CURLOPT_XFERINFODATA, &running);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &CurlHooks::receive);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &running);
    curl_easy_setopt(easy, CURLOPT_READFUNCTION, &CurlHooks::send);
    curl_easy_setopt(easy, CURLOPT_READDATA, &running);
    curl_easy_setopt(easy, CURLOPT_SSH_HOSTKEYFUNCTION, &CurlHooks::judge_host_key);
    curl_easy_setopt(easy, CURLOPT_SSH_HOSTKEYDATA, &running);
    curl_easy_setopt(easy, CURLOPT_SSL_CTX_FUNCTION, &CurlHooks::judge_certificates);
    curl_easy_setopt(easy, CURLOPT_SSL_CTX_DATA, &running.session);
}

int CurlHooks::resolving(void*, void*, void* data) {
    auto& running = *static_cast<Running*>(data);
    if (!running.greeted) running.session.watch_.state(InternetState::kResolvingHost);
    return 0;
}

curl_socket_t CurlHooks::open_socket(void* data, curlsocktype, curl_sockaddr* address) {
    auto& running = *static_cast<Running*>(data);
    // libcurl logs in anew by itself where it finds the connection gone, with no more protection than it is offered
    // then; over SSH it has none to lose. A connection that is gone fails the request instead.
    if (running.continues && !running.data_promised && !running.session.ssh()) {
        running.answer.end = CurlEnd::kNoConnection;
        return CURL_SOCKET_BAD;
    }
    const int socket = ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    if (socket < 0) return CURL_SOCKET_BAD;
    // What the system holds back counts as gone up: on a slow line megabytes of it would keep the server's answer away
    // longer than it is waited for.
    const int held_back = kHeldBack;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NOTSENT_LOWAT, &held_back, sizeof held_back);
    running.heard_byte();
    running.data_promised = false;
    if (!running.greeted) {
        running.session.watch_.state(InternetState::kHostResolved);
        running.session.watch_.state(InternetState::kConnecting);
    }
    running.session.interruption_.socket_opened(socket);
    if (running.greeted && !running.session.ssh() && running.session.protection_.encrypted) running.hold(socket);
    return socket;
}

int CurlHooks::close_socket(void* data, curl_socket_t socket) {
    auto& session = *static_cast<CurlSession*>(data);
    session.interruption_.socket_closing(socket);
    if (session.ssh() && has_hung_up(socket)) session.hung_up_ = true;
    return ::close(socket);
}

int CurlHooks::said(CURL*, curl_infotype kind, char* bytes, size_t count, void* data) {
    auto& running = *static_cast<Running*>(data);
    CurlSession& session = running.session;
    if (kind == CURLINFO_HEADER_OUT) {
        running.heard_byte();
        running.answer.talk.heard_command(QByteArray(bytes, static_cast<qsizetype>(count)));
        session.note_tls(running.easy, running.answer.talk);
        running.data_asked = is_data_command(running.answer.talk.replies().last().command);
        running.data_promised = false;
        running.ask();
    } else if (kind == CURLINFO_HEADER_IN) {
        running.heard_byte();
        running.answer.talk.heard_reply(QByteArray(bytes, static_cast<qsizetype>(count)));
        if (running.data_asked) running.let_go();
        const FtpReply& reply = running.answer.talk.replies().last();
        running.data_promised = reply.command == "EPSV" || reply.command == "PASV";
        running.greet();
        running.hear();
    } else if (kind == CURLINFO_TEXT && running.answer.ssh.spoken) {
        static const QByteArray kMethods = "SSH authentication methods available: ";
        const QByteArray text = QByteArray(bytes, static_cast<qsizetype>(count)).trimmed();
        if (text.startsWith(kMethods)) running.answer.ssh.login_methods = text.sliced(kMethods.size());
    }
    return 0;
}

int CurlHooks::moved(void* data, curl_off_t down_all, curl_off_t down, curl_off_t, curl_off_t up) {
    auto& running = *static_cast<Running*>(data);
    const qint64 now = down + up;
    if (now != running.moved) {
        running.moved = now;
        running.heard_byte();
        if (running.request.source || running.request.sink)
            running.session.watch_.progress(now, running.request.source ? running.request.source_size : down_all);
    }
    return running.go_on() ? 0 : 1;
}

size_t CurlHooks::receive(char* bytes, size_t size, size_t count, void* data) {
    auto& running = *static_cast<Running*>(data);
    running.heard_byte();
    const auto all = static_cast<qint64>(size) * static_cast<qint64>(count);
    if (!running.request.sink) return static_cast<size_t>(all);
    return running.request.sink(bytes, all) ? static_cast<size_t>(all) : CURL_WRITEFUNC_ERROR;
}

size_t CurlHooks::send(char* bytes, size_t size, size_t count, void* data) {
    const auto& running = *static_cast<Running*>(data);
    if (!running.request.source) return 0;
    const qint64 read = running.request.source(bytes, static_cast<qint64>(size) * static_cast<qint64>(count));
    return read < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(read);
}

int CurlHooks::judge_host_key(void* data, int, const char* key, size_t count) {
    auto& running = *static_cast<Running*>(data);
    running.heard_byte();
    running.greet();
    running.answer.ssh.greeted = true;
    const bool known = running.session.key_check_.passes(QByteArray(key, static_cast<qsizetype>(count)));
    if (known) running.ask();
    return known ? CURLKHMATCH_OK : CURLKHMATCH_MISMATCH;
}

CURLcode CurlHooks::judge_certificates(CURL*, void* context, void* session) {
    static_cast<CurlSession*>(session)->check_.judge(context);
    return CURLE_OK;
}

}  // namespace pondera
