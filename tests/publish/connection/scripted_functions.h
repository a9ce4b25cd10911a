#pragma once

#include <QStringList>

#include <functional>

#include "publish/connection/internet_functions.h"
#include "tests/support/qt_text.h"

namespace pondera {

/// A machine whose connection is as a test wants it.
class ScriptedFunctions : public InternetFunctions {
  public:
    ConnectedState state;
    int error = 0;  ///< every function leaves it
    std::optional<QString> response;
    QStringList calls;
    std::function<bool()> permission;  ///< asked by `go_online`
    std::function<void()> at_refresh;

    bool connected_state(ConnectedState& now) override {
        if (at_refresh) at_refresh();
        now = state;
        return error == 0;
    }
    bool set_online(bool online) override { return called(online ? u"on"_s : u"off"_s); }
    bool go_online(const QString& url, quintptr) override {
        if (permission && !permission()) error = kRefusedByPerson;
        return called(u"go "_s + url);
    }
    bool dial(const QString&) override { return false; }
    bool hang_up() override { return false; }
    bool autodial() override { return false; }
    bool autodial_hang_up() override { return false; }
    [[nodiscard]] int last_error() const override { return error; }
    [[nodiscard]] std::optional<QString> last_response() const override { return response; }
    [[nodiscard]] NetworkPresence IsNetworkAlive() const override { return {.lan = state.connected}; }

  private:
    bool called(const QString& call) {
        calls << call;
        return error == 0;
    }
};

}  // namespace pondera
