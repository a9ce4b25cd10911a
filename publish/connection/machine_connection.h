#pragma once

#include <functional>

#include "publish/connection/internet_functions.h"

class QSettings;

namespace pondera {

/// The Internet functions of this machine. Where a network service runs, it says whether the Internet is reached; else
/// the machine's own routes do. Off line mode is a setting of the user. There is no dialling here.
class MachineConnection : public InternetFunctions {
  public:
    /// Asks the person whether the program may go on line for an address.
    using Permission = std::function<bool(const QString& url, quintptr parent_window)>;

    /// Reads the last words of a server; nothing when the last command went well.
    using LastResponse = std::function<std::optional<QString>()>;

    /// `settings` must outlive it. Without `permission` nobody is asked and nothing permitted.
    explicit MachineConnection(QSettings& settings, Permission permission = {}, LastResponse last_response = {});

    bool connected_state(ConnectedState& state) override;
    bool set_online(bool online) override;
    bool go_online(const QString& url, quintptr parent_window) override;
    bool dial(const QString& /*connection_name*/) override { return fails(kNotOnThisSystem); }
    bool hang_up() override { return fails(kNotOnThisSystem); }
    bool autodial() override { return fails(kNotOnThisSystem); }
    bool autodial_hang_up() override { return fails(kNotOnThisSystem); }
    [[nodiscard]] int last_error() const override { return last_error_; }
    [[nodiscard]] std::optional<QString> last_response() const override;
    [[nodiscard]] NetworkPresence IsNetworkAlive() const override;

  private:
    bool succeeds();
    bool fails(int number);
    [[nodiscard]] bool offline() const;

    QSettings& settings_;
    Permission permission_;
    LastResponse last_response_;
    int last_error_ = 0;
};

}  // namespace pondera
