#include "bench/held_line.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

namespace pondera {
namespace {

void join(QTcpSocket* client, quint16 server_port, std::chrono::milliseconds held, std::atomic<int>& commands) {
    auto* const server = new QTcpSocket(client);
    for (QTcpSocket* const socket : {client, server}) socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    server->connectToHost(QHostAddress(QHostAddress::LocalHost), server_port);
    QObject::connect(client, &QTcpSocket::readyRead, server, [client, server, &commands] {
        const QByteArray bytes = client->readAll();
        commands += static_cast<int>(bytes.count('\n'));
        server->write(bytes);
    });
    QObject::connect(server, &QTcpSocket::readyRead, client, [client, server, held] {
        QTimer::singleShot(held, Qt::PreciseTimer, client,
                           [client, bytes = server->readAll()] { client->write(bytes); });
    });
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(server, &QTcpSocket::disconnected, client, [client, held] {
        QTimer::singleShot(held, Qt::PreciseTimer, client, [client] { client->disconnectFromHost(); });
    });
}

}  // namespace

HeldLine::HeldLine(const QString& server, std::chrono::milliseconds held) {
    auto* const door = new QTcpServer;
    door->listen(QHostAddress::LocalHost);
    host_ = QStringLiteral("127.0.0.1:%1").arg(door->serverPort());
    const quint16 port = server.section(u':', -1).toUShort();
    QObject::connect(door, &QTcpServer::newConnection, door,
                     [this, door, port, held] { join(door->nextPendingConnection(), port, held, commands_); });
    thread_ = std::make_unique<QThread>();
    door->moveToThread(thread_.get());
    QObject::connect(thread_.get(), &QThread::finished, door, &QObject::deleteLater);
    thread_->start();
}

HeldLine::~HeldLine() {
    thread_->quit();
    thread_->wait();
}

}  // namespace pondera
