#pragma once

#include <QStringList>

#include <functional>

#include "publish/connection/internet_functions.h"

namespace pondera {

/// A machine whose connection is as a test wants it. Every function notes that it was called.
class ScriptedFunctions : public InternetFunctions {
  public:
    ConnectedState state;
    int error = 0;  ///< all functions but `connected_state` fail with it
    std::optional<QString> response;
    QStringList calls;
    std::function<bool()> permission;  ///< asked by `go_online`
    std::function<void()> at_refresh;

    bool connected_state(ConnectedState& now) override {
        if (at_refresh) at_refresh();
        now = state;
        return error == 0;
    }
    bool set_online(bool online) override { return called(online ? "on" : "off"); }
    bool go_online(const QString& url, quintptr) override {
        if (permission && !permission()) error = kRefusedByPerson;
        return called("go " + url.toUtf8());
    }
    bool dial(const QString& name) override { return called("dial " + name.toUtf8()); }
    bool hang_up() override { return called("hang up"); }
    bool autodial() override { return called("autodial"); }
    bool autodial_hang_up() override { return called("autodial hang up"); }
    [[nodiscard]] int last_error() const override { return error; }
    [[nodiscard]] std::optional<QString> last_response() const override { return response; }
    [[nodiscard]] NetworkPresence IsNetworkAlive() const override { return {.lan = state.connected}; }

  private:
    bool called(const QByteArray& call) {
        calls << QString::fromUtf8(call);
        return error == 0;
    }
};

}  // namespace pondera
