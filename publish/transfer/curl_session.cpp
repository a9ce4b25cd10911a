#include "publish/transfer/curl_session.h"

#include <algorithm>
#include <array>
#include <memory>
#include <poll.h>
#include <sys/socket.h>
#include <utility>

#include "publish/transfer/curl_hooks.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

using CommandList = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

CommandList command_list(const QByteArrayList& commands, const char* mark) {
    CommandList list(nullptr, &curl_slist_free_all);
    for (const QByteArray& command : commands)
        list.reset(curl_slist_append(list.release(), (mark + command).constData()));
    return list;
}

long protection_level(ProtectionWish wish) {
    switch (wish) {
        case ProtectionWish::kNone:
            return CURLUSESSL_NONE;
        case ProtectionWish::kWhenOffered:
            return CURLUSESSL_TRY;
        case ProtectionWish::kRequired:
            break;
    }
    return CURLUSESSL_ALL;
}

QByteArray address_of(const RemoteHost& host, const QByteArray& path) {
    const QString name = host.name.contains(u':') ? u'[' + host.name + u']' : host.name;
    const QByteArray server = name.toLatin1() + ':' + QByteArray::number(host.port);
    // An absolute path is told by its second slash in FTP; in SFTP by its first, unless it looks like the home folder.
    if (host.protocol == HostProtocol::kFtp) return "ftp://" + server + '/' + path;
    return "sftp://" + server + (path.startsWith("/~") ? "/." : "") + path;
}

}  // namespace

CurlSession::CurlSession(TransferLogin login, TransferWaits waits, Interruption& interruption, SessionWatch watch)
    : login_(std::move(login)),
      waits_(std::move(waits)),
      interruption_(interruption),
      watch_(std::move(watch)),
      check_(login_.host.name, login_.trusted_certificate),
      key_check_(login_.trusted_certificate),
      easy_(curl_easy_init()) {
}

CurlSession::~CurlSession() {
    drop();
    curl_easy_cleanup(easy_);
}

void CurlSession::drop() {
    // libcurl would say goodbye and wait for the answer; with its socket shut there is nobody to wait for.
    interruption_.shut_sockets();
    if (multi_ != nullptr) curl_multi_cleanup(std::exchange(multi_, nullptr));
    control_socket_ = -1;
    protection_ = {};
}

bool CurlSession::connected() const {
    if (control_socket_ < 0) return false;
    std::array<pollfd, 1> socket{{{.fd = control_socket_, .events = POLLIN, .revents = 0}}};
    if (::poll(socket.data(), socket.size(), 0) == 0) return true;
    // An SSH server may ask now and then whether anybody is there.
    char byte = 0;
    return ssh() && ::recv(control_socket_, &byte, 1, MSG_PEEK | MSG_DONTWAIT) == 1;
}

void CurlSession::configure(const CurlRequest& request) {
    curl_easy_reset(easy_);
    const auto set = [this](CURLoption option, auto value) { curl_easy_setopt(easy_, option, value); };
    set(CURLOPT_URL, address_of(login_.host, request.path).constData());
    set(CURLOPT_PROTOCOLS_STR, ssh() ? "sftp" : "ftp");
    set(CURLOPT_PROXY, "");
    set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    set(CURLOPT_USERNAME, login_.user.toUtf8().constData());
    set(CURLOPT_PASSWORD, login_.password.toUtf8().constData());
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_PATH_AS_IS, 1L);
    // A name server that does not answer is not waited for when a request is ended.
    set(CURLOPT_QUICK_EXIT, 1L);
    // Addresses are remembered by host and port, and each file goes to a port of its own: thousands would be gone
    // through after each file, and none is ever asked for again.
    set(CURLOPT_DNS_CACHE_TIMEOUT, 0L);
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>((waits_.connect + waits_.silence).count()));
    // While a film goes up for an hour the control connection is silent, and routers forget silent connections.
    set(CURLOPT_TCP_KEEPALIVE, 1L);
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(request.largest));
    if (request.source) {
        set(CURLOPT_UPLOAD, 1L);
        set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(request.source_size));
    } else if (!request.sink) {
        set(CURLOPT_NOBODY, 1L);
    }
    if (ssh())
        configure_sftp();
    else
        configure_ftp(request);
}

void CurlSession::configure_ftp(const CurlRequest& request) {
    const auto set = [this](CURLoption option, auto value) { curl_easy_setopt(easy_, option, value); };
    const auto silence = std::chrono::ceil<std::chrono::seconds>(waits_.silence).count();
    set(CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(silence));

    set(CURLOPT_USE_SSL, protection_level_);
    // With TLS 1.3 the end of an upload is lost with some servers.
    set(CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2} | long{CURL_SSLVERSION_MAX_TLSv1_2});
    // One file of authorities instead of a folder of them is read once a session, not once a connection.
    set(CURLOPT_CAPATH, static_cast<char*>(nullptr));
    // The certificate check of our own looks at the host's name as well, so that a trusted fingerprint can stand for
    // it.
    set(CURLOPT_SSL_VERIFYHOST, 0L);

    // A working folder that libcurl changes for itself alone: all other requests name absolute paths and leave it.
    set(CURLOPT_FTP_FILEMETHOD,
        static_cast<long>(request.enter_folder ? CURLFTPMETHOD_SINGLECWD : CURLFTPMETHOD_NOCWD));
    if (!request.listing.isEmpty()) set(CURLOPT_CUSTOMREQUEST, request.listing.constData());
}

void CurlSession::configure_sftp() {
    // Many servers ask for the password as a question of their own. Keys of the person's are another matter.
    curl_easy_setopt(easy_, CURLOPT_SSH_AUTH_TYPES, long{CURLSSH_AUTH_PASSWORD} | long{CURLSSH_AUTH_KEYBOARD});
    // So much goes up before an answer is waited for.
    constexpr long kInFlight = 512 << 10;
    curl_easy_setopt(easy_, CURLOPT_UPLOAD_BUFFERSIZE, kInFlight);
}

CurlAnswer CurlSession::perform(const CurlRequest& request) {
    if (multi_ == nullptr) {
        multi_ = curl_multi_init();
        protection_level_ =
            std::max(protection_level(login_.protection), long{was_protected_ ? CURLUSESSL_CONTROL : CURLUSESSL_NONE});
    }
    configure(request);
    // With "*" a refused FTP command is an answer like any other; without, libcurl ends the connection. In SFTP the
    // result alone tells.
    const char* const mark = ssh() ? "" : "*";
    const CommandList commands = command_list(request.commands, mark);
    const CommandList afterwards = command_list(request.afterwards, mark);
    curl_easy_setopt(easy_, CURLOPT_QUOTE, commands.get());
    curl_easy_setopt(easy_, CURLOPT_POSTQUOTE, afterwards.get());
    std::array<char, CURL_ERROR_SIZE> message{};
    curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, message.data());
    Running running{.session = *this, .request = request, .easy = easy_, .continues = control_socket_ >= 0};
    running.answer.ssh = {.spoken = ssh(), .greeted = running.greeted};
    hung_up_ = false;
    CurlHooks::install(running);
    if (ssh() && running.greeted) running.ask();

    curl_multi_add_handle(multi_, easy_);
    drive(running);
    CurlAnswer& answer = running.answer;
    answer.message = QString::fromLocal8Bit(message.data());
    long os_error = 0;
    curl_easy_getinfo(easy_, CURLINFO_OS_ERRNO, &os_error);
    answer.os_error = static_cast<int>(os_error);
    curl_socket_t socket = CURL_SOCKET_BAD;
    curl_easy_getinfo(easy_, CURLINFO_ACTIVESOCKET, &socket);
    // libcurl's pointer to it lives no longer than the connection.
    const char* home = nullptr;
    if (socket != CURL_SOCKET_BAD) curl_easy_getinfo(easy_, CURLINFO_FTP_ENTRY_PATH, &home);
    answer.home = home;
    curl_multi_remove_handle(multi_, easy_);

    control_socket_ = answer.end == CurlEnd::kItself ? socket : -1;
    if (ssh()) {
        running.hear();
        answer.ssh.hung_up = hung_up_ || (control_socket_ >= 0 && has_hung_up(control_socket_));
        answer.afterwards_begun = !request.afterwards.isEmpty() && answer.result == CURLE_QUOTE_ERROR;
    } else if (!request.afterwards.isEmpty()) {
        const QByteArray& first = request.afterwards.first();
        answer.afterwards_begun = answer.talk.reply_to(first.first(first.indexOf(' '))) != nullptr;
    }
    was_protected_ = was_protected_ || (answer.result == CURLE_OK && protection_.encrypted);
    if (control_socket_ < 0) drop();
    if (answer.result == CURLE_PEER_FAILED_VERIFICATION)
        note_doubt();
    else if (ssh() && control_socket_ >= 0)
        protection_ = {.encrypted = true,
                       .files_encrypted = true,
                       .protocol = u"SSH"_s,
                       .verified = true,
                       .fingerprint = key_check_.fingerprint()};
    return answer;
}

/// What stood against the server's certificate or key.
void CurlSession::note_doubt() {
    if (ssh())
        protection_ = {.protocol = u"SSH"_s, .fingerprint = key_check_.fingerprint(), .doubt = key_check_.doubt()};
    else
        protection_ = {
            .protocol = {}, .holder = check_.holder(), .fingerprint = check_.fingerprint(), .doubt = check_.doubt()};
}

void CurlSession::drive(Running& running) {
    constexpr int kSoon = 1;
    constexpr int kLater = 25;
    constexpr auto kLively = std::chrono::milliseconds(20);
    constexpr auto kQuiet = std::chrono::milliseconds(10);
    int active = 1;
    while (true) {
        if (const CURLMcode fault = curl_multi_perform(multi_, &active); fault != CURLM_OK) {
            running.answer.result = CURLE_FAILED_INIT;
            return;
        }
        if (active == 0) break;
        if (!running.go_on()) {
            running.answer.result = CURLE_ABORTED_BY_CALLBACK;
            return;
        }
        // libcurl does not always know what to wait for: having heard where to connect to for data, it waits for
        // nothing at all, to the end of the time given.
        const auto quiet = Running::Clock::now() - running.last_byte;
        const bool lively = quiet < kLively;
        if (!lively) watch_.idle();
        if (running.data_asked && quiet > kQuiet) running.let_go();
        if (!running.data_promised) curl_multi_poll(multi_, nullptr, 0, lively ? kSoon : kLater, nullptr);
    }
    int left = 0;
    while (const CURLMsg* const told = curl_multi_info_read(multi_, &left))
        if (told->msg == CURLMSG_DONE) running.answer.result = told->data.result;
    // libcurl names what broke; whether it broke because time was up, or on request, is known here.
    if (running.answer.result != CURLE_OK) running.go_on();
}

void CurlSession::note_tls(CURL* easy, const FtpTalk& talk) {
    const QByteArray& command = talk.replies().last().command;
    if (command == "USER") {
        protection_ = {};
        const curl_tlssessioninfo* tls = nullptr;
        curl_easy_getinfo(easy, CURLINFO_TLS_SSL_PTR, &tls);
        if (tls == nullptr || tls->internals == nullptr) return;
        protection_ = {.encrypted = true,
                       .protocol = tls_protocol(tls->internals),
                       .verified = check_.doubt().isEmpty(),
                       .holder = check_.holder(),
                       .fingerprint = check_.fingerprint(),
                       .doubt = check_.doubt()};
    }
    if (const FtpReply* const files = talk.reply_to("PROT"); files != nullptr)
        protection_.files_encrypted = protection_.encrypted && files->good();
}

}  // namespace pondera
