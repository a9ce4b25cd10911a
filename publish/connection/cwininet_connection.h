#pragma once

#include <QString>

#include <expected>

#include "publish/connection/internet_functions.h"

namespace pondera {

/// The base of the numbers of errors that the program raises, as the platform has it for the errors of classes.
inline constexpr int kApplicationErrorBase = static_cast<int>(0x80040000);
inline constexpr int kOwnNumbersFrom = 1000;

/// An error as the connection raises it: the system's number plus kApplicationErrorBase plus 1000,
/// "CWinInetConnection." and the routine that failed, and a description in English.
struct ConnectionError {
    int number = 0;
    QString source;
    QString description;

    /// The number that the system's functions left.
    [[nodiscard]] int system_number() const { return number - kApplicationErrorBase - kOwnNumbersFrom; }

    friend bool operator==(const ConnectionError&, const ConnectionError&) = default;
};

using ConnectionResult = std::expected<void, ConnectionError>;

/// The Internet connection of this machine. What it tells is as of the last `Refresh`; what it does goes through the
/// system's Internet functions, and their failures come back as errors.
class CWinInetConnection {
  public:
    /// `functions` must outlive the connection.
    explicit CWinInetConnection(InternetFunctions& functions) : functions_(functions) {}

    /// Turns the local system to global online mode.
    [[nodiscard]] ConnectionResult SetGlobalOnline();
    /// Turns the local system to global off line mode.
    [[nodiscard]] ConnectionResult SetGlobalOffline();
    /// Prompts the user for permission to initiate connection to a URL.
    [[nodiscard]] ConnectionResult GoOnline(const QString& strURL, quintptr hwndParentWindow = 0);
    /// Instructs the modem to disconnect from the Internet.
    [[nodiscard]] ConnectionResult HangUp();
    /// Initiates a connection to the Internet using a modem.
    [[nodiscard]] ConnectionResult Dial(const QString& strConnectionName);
    /// Disconnects an automatic dial-up connection.
    [[nodiscard]] ConnectionResult AutodialHangup();
    /// Causes the modem to automatically dial the default Internet connection.
    [[nodiscard]] ConnectionResult Autodial();
    /// Refresh the class data.
    [[nodiscard]] ConnectionResult Refresh();

    /// The machine is connected to the Internet now.
    [[nodiscard]] bool IsConnected() const { return state_.connected; }
    /// Name of the active connection.
    [[nodiscard]] QString ConnectionName() const { return state_.name; }
    /// Local system has a valid connection to the Internet, but it may or may not be currently connected.
    [[nodiscard]] bool IsConnectionConfigured() const { return has(kConnectionConfigured); }
    /// Local system is in offline mode.
    [[nodiscard]] bool IsOffline() const { return has(kConnectionOffline); }
    /// Local system has RAS installed.
    [[nodiscard]] bool IsRasInstalled() const { return has(kRasInstalled); }
    /// Local system uses a proxy server to connect to the Internet.
    [[nodiscard]] bool UseProxy() const { return has(kConnectionProxy); }
    /// Local system uses a local area network to connect to the Internet.
    [[nodiscard]] bool UseLAN() const { return has(kConnectionLan); }
    /// Local system uses a modem to connect to the Internet.
    [[nodiscard]] bool UseModem() const { return has(kConnectionModem); }

    /// The text of an Internet library number; for 12003 the server's last words.
    [[nodiscard]] QString GetWinApiDesc(int lErrNumber) const;

  private:
    [[nodiscard]] bool has(ConnectionBit bit) const { return (state_.bits & bit) != 0; }
    [[nodiscard]] ConnectionResult checked(bool done, const QString& routine) const;

    InternetFunctions& functions_;
    ConnectedState state_;
};

}  // namespace pondera
