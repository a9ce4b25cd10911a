#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <functional>

#include "publish/transfer/curl_transfer.h"
#include "tests/support/qt_text.h"

namespace pondera {

/// The transfer control with short waits, and a way to wait for it.
class Control {
  public:
    explicit Control(TransferWaits waits = {.connect = std::chrono::seconds(5),
                                            .silence = std::chrono::seconds(5),
                                            .retries = std::vector(3, std::chrono::milliseconds(1))})
        : inet(nullptr, std::move(waits)) {
        inet.set_user(u"anonymous"_s);
        inet.set_password(u"secret"_s);
        QObject::connect(&inet, &InternetTransfer::StateChanged, [this](InternetState state) { states << state; });
    }

    /// Does a command and tells how it ended; the window's thread stays free meanwhile.
    int run(const QString& command) {
        inet.Execute(command);
        wait_until([this] { return !inet.StillExecuting(); });
        return inet.ResponseCode();
    }

    /// Goes to a server, and trusts it when it asks for that.
    void meet(const QString& host) {
        inet.set_host(host);
        if (run(u"DIR"_s) == kCertificateNotTrusted) inet.trust_certificate(inet.Protection().fingerprint);
    }

    /// Gives a command and cancels it at that moment; the next command is not kept waiting by it.
    void cancel(const QString& command, const std::function<bool()>& moment) {
        inet.Execute(command);
        wait_until(moment);
        inet.Cancel();
        EXPECT_FALSE(inet.StillExecuting());
        EXPECT_EQ(states.last(), InternetState::kDisconnected);
    }
    void expect_quick(const QString& command) {
        QElapsedTimer waited;
        waited.start();
        EXPECT_EQ(run(command), kFine) << inet.ResponseInfo().toStdString();
        EXPECT_LT(waited.elapsed(), 1'000);
    }

    /// Turns the event loop until `reached`, at most for half a minute.
    static void wait_until(const std::function<bool()>& reached) {
        QElapsedTimer waited;
        waited.start();
        QEventLoop loop;
        while (!reached() && waited.elapsed() < 30'000) {
            QTimer::singleShot(20, &loop, &QEventLoop::quit);
            loop.processEvents(QEventLoop::WaitForMoreEvents);
        }
        EXPECT_TRUE(reached());
    }

    CurlTransfer inet;
    QList<InternetState> states;
};

}  // namespace pondera
