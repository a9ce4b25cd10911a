#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace pondera {

/// The bits of the state word that tell how the machine is connected.
enum ConnectionBit : quint32 {
    kConnectionModem = 0x01,
    kConnectionLan = 0x02,
    kConnectionProxy = 0x04,
    kRasInstalled = 0x10,
    kConnectionOffline = 0x20,
    kConnectionConfigured = 0x40,
};

/// What the machine says of its connection.
struct ConnectedState {
    bool connected = false;
    quint32 bits = 0;  ///< of ConnectionBit
    QString name{};    ///< of the active connection
};

/// The kinds of network that the machine takes part in at this moment.
struct NetworkPresence {
    bool lan = false;
    bool ras = false;  ///< dial-up
};

/// Numbers of the system that the functions below leave behind.
enum SystemNumber : int {
    kAccessDenied = 5,
    kNotOnThisSystem = 120,
    kRefusedByPerson = 1223,
};

/// The Internet functions of the system. What fails is false and leaves its number in `last_error`, as the system's own
/// library does; a function that does well leaves 0.
class InternetFunctions {
  public:
    virtual ~InternetFunctions() = default;

    /// The state of the connection; not being connected is no failure.
    virtual bool connected_state(ConnectedState& state) = 0;

    /// Puts the program on line or off line, until the next time, for this user.
    virtual bool set_online(bool online) = 0;

    /// Goes on line for an address when the person permits it; `parent_window` is the window that asks.
    virtual bool go_online(const QString& url, quintptr parent_window) = 0;

    virtual bool dial(const QString& connection_name) = 0;
    virtual bool hang_up() = 0;
    virtual bool autodial() = 0;
    virtual bool autodial_hang_up() = 0;

    /// The number of the last function's failure: below 12001 the system's, from there on the Internet library's.
    [[nodiscard]] virtual int last_error() const = 0;

    /// The last words of a server; nothing when they cannot be read.
    [[nodiscard]] virtual std::optional<QString> last_response() const = 0;

    /// The networks that are up, whether or not they lead to the Internet.
    [[nodiscard]] virtual NetworkPresence IsNetworkAlive() const = 0;
};

}  // namespace pondera
