#pragma once

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace pondera {

/// Stands before an FTP server and hands on what is said on the control connection, until it hangs up for good.
class CuttingProxy : public QTcpServer {
  public:
    /// `server` is "127.0.0.1:PORT". It hangs up at the command numbered `cut_at`, which the server hears if
    /// `hand_over`.
    CuttingProxy(const QString& server, int cut_at, bool hand_over)
        : port_(server.section(u':', -1).toUShort()), cut_at_(cut_at), hand_over_(hand_over) {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, &CuttingProxy::begin);
    }

    int commands = 0;

    [[nodiscard]] QString host() const { return QStringLiteral("127.0.0.1:%1").arg(serverPort()); }

  private:
    void begin() {
        QTcpSocket* const client = nextPendingConnection();
        auto* const server = new QTcpSocket(client);
        server->connectToHost(QHostAddress(QHostAddress::LocalHost), port_);
        connect(server, &QTcpSocket::readyRead, client, [client, server] {
            if (client->isOpen()) client->write(server->readAll());
        });
        connect(client, &QTcpSocket::readyRead, this, [this, client, server] {
            while (client->canReadLine()) {
                const QByteArray line = client->readLine();
                const bool cut = ++commands == cut_at_;
                if (!cut || hand_over_) server->write(line);
                if (!cut) continue;
                server->waitForBytesWritten();
                close();
                return client->abort();
            }
        });
    }

    quint16 port_;
    int cut_at_;
    bool hand_over_;
};

}  // namespace pondera
