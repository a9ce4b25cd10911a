#include "tests/publish/transfer/bad_server.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace pondera {

struct BadServer::Session {
    QTcpSocket* control = nullptr;
    QTcpServer passive{};
    QPointer<QTcpSocket> data{};
    QByteArray name{};
    QByteArray bytes{};
    QByteArray renamed{};
    enum { kIdle, kStoring, kSending } work = kIdle;
};

BadServer::BadServer(const QHostAddress& address) {
    listen(address);
    connect(this, &QTcpServer::newConnection, this, &BadServer::begin);
}

QString BadServer::host() const {
    const bool v6 = serverAddress().protocol() == QAbstractSocket::IPv6Protocol;
    return QStringLiteral("%1:%2").arg(v6 ? QStringLiteral("[::1]") : serverAddress().toString()).arg(serverPort());
}

qsizetype BadServer::count(const QByteArray& verb) const {
    return std::ranges::count_if(commands, [&verb](const QByteArray& line) { return line.startsWith(verb); });
}

void BadServer::farewell() {
    for (const QPointer<QTcpSocket>& control : controls_) {
        if (control == nullptr || control->state() != QTcpSocket::ConnectedState) continue;
        control->write("421 idle for too long\r\n");
        control->disconnectFromHost();
    }
}

void BadServer::begin() {
    auto session = std::make_shared<Session>();
    session->control = nextPendingConnection();
    controls_ << session->control;
    session->control->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    ++sessions;
    session->control->write(welcome);
    connect(session->control, &QTcpSocket::readyRead, this, [this, session] {
        while (session->control->isOpen() && session->control->canReadLine())
            answer(*session, session->control->readLine().trimmed());
    });
    connect(&session->passive, &QTcpServer::newConnection, this, [this, session] {
        session->data = session->passive.nextPendingConnection();
        connect(session->data, &QTcpSocket::readyRead, this, [this, session] { move_data(*session); });
        connect(session->data, &QTcpSocket::disconnected, this, [this, session] { move_data(*session); });
        move_data(*session);
    });
}

void BadServer::answer(Session& session, const QByteArray& line) {
    commands << line;
    std::optional<QByteArray> other = instead ? instead(line) : std::nullopt;
    for (const auto& [start, reply] : replies.asKeyValueRange())
        if (line.startsWith(start)) other = reply;
    if (other == "hang up") return session.control->abort();
    const QByteArray verb = line.left(line.indexOf(' ') < 0 ? line.size() : line.indexOf(' '));
    const QByteArray reply = other ? *other : reply_to(session, verb, line.mid(verb.size() + 1));
    if (!reply.isEmpty()) session.control->write(reply + "\r\n");
    if (reply.startsWith("421")) session.control->disconnectFromHost();
    if (reply.startsWith("150")) move_data(session);
}

QByteArray BadServer::reply_to(Session& session, const QByteArray& verb, const QByteArray& name) {
    if (verb == "USER") return "331 password";
    if (verb == "PASS") return "230 in";
    if (verb == "PWD") return "257 \"/home\"";
    if (verb == "FEAT") return "211-features\r\n " + features.join("\r\n ") + "\r\n211 end";
    if (verb == "EPSV") {
        session.data = nullptr;
        session.passive.close();
        session.passive.listen(serverAddress());
        return "229 entering (|||" + QByteArray::number(session.passive.serverPort()) + "|)";
    }
    if (verb == "PASV") {
        reply_to(session, "EPSV", {});
        const quint16 port = session.passive.serverPort();
        return "227 entering (127,0,0,1," + QByteArray::number(port / 256) + ',' + QByteArray::number(port % 256) + ')';
    }
    if (verb == "STOR") {
        session.work = Session::kStoring;
        session.name = name;
        session.bytes.clear();
        return "150 send";
    }
    if (verb == "LIST" || verb == "MLSD" || (verb == "RETR" && files.contains(name))) {
        session.work = Session::kSending;
        session.bytes = verb == "RETR" ? files[name] : listing;
        return "150 coming";
    }
    if (verb == "RNFR") {
        if (!files.contains(name)) return "550 no such file";
        session.renamed = name;
        return "350 to?";
    }
    if (verb == "RNTO") {
        if (session.renamed.isEmpty()) return "503 what first?";
        files[name] = files.take(std::exchange(session.renamed, {}));
        return "250 renamed";
    }
    if (verb == "DELE") return files.remove(name) ? "250 gone" : "550 no such file";
    if (verb == "CWD" || verb == "TYPE" || verb == "OPTS" || verb == "MKD") return "200 fine";
    return "502 what?";
}

void BadServer::move_data(Session& session) {
    if (session.data == nullptr || session.work == Session::kIdle) return;
    const bool storing = session.work == Session::kStoring;
    if (storing) session.bytes += session.data->readAll();
    const bool cut = cut_after >= 0 && session.bytes.size() >= cut_after;
    if (storing && !cut && session.data->state() == QTcpSocket::ConnectedState) return;
    session.work = Session::kIdle;
    if (cut) session.bytes.truncate(std::exchange(cut_after, -1));
    if (storing) files[session.name] = session.bytes;
    if (!storing) session.data->write(session.bytes);
    session.data->disconnectFromHost();
    if (cut) return session.control->disconnectFromHost();
    if (!storing || !silent_after_upload) session.control->write("226 done\r\n");
}

}  // namespace pondera
