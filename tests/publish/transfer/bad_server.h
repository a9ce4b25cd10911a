#pragma once

#include <QByteArrayList>
#include <QHash>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <optional>

namespace pondera {

/// A small FTP server on loopback that behaves badly where a test wants it to. It counts what it is told.
class BadServer : public QTcpServer {
  public:
    explicit BadServer(const QHostAddress& address = QHostAddress::LocalHost);

    /// What the control connection answers to a command line in place of the usual reply; "" says nothing at all,
    /// "hang up" closes the connection.
    std::function<std::optional<QByteArray>(const QByteArray& line)> instead;
    /// Replies that are always the same, by the beginning of the line.
    QHash<QByteArray, QByteArray> replies;
    QByteArray welcome = "220 ready\r\n";
    QByteArrayList features = {"UTF8"};
    QByteArray listing;
    qint64 cut_after = -1;  ///< the bytes of a file after which it hangs up, once
    bool silent_after_upload = false;
    QHash<QByteArray, QByteArray> files;
    QByteArrayList commands;  ///< all lines
    int sessions = 0;

    [[nodiscard]] QString host() const;
    [[nodiscard]] qsizetype count(const QByteArray& verb) const;
    /// Says goodbye to all sessions, unasked.
    void farewell();

  private:
    struct Session;
    QList<QPointer<QTcpSocket>> controls_;
    void begin();
    void answer(Session& session, const QByteArray& line);
    QByteArray reply_to(Session& session, const QByteArray& verb, const QByteArray& name);
    void move_data(Session& session);
};

}  // namespace pondera
