#include <QTest>
#include <QtWidgets>

#include "publish/connection/cwininet_connection.h"
#include "publish/connection/ensure_connected.h"
#include "publish/connection/frm_connection_state.h"
#include "tests/publish/connection/scripted_functions.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

class ConnectionForms : public WindowFixture {
  protected:
    ConnectionForms() { functions_.state = {.connected = true, .bits = 0x42, .name = u"eth0"_s}; }

    bool ensured(const QString& host = u"ftp.x.org"_s) { return ensure_connected(workbench(), functions_, host); }

    /// The person closes frmReconnect by that button, or by its close box.
    void expect_reconnect(const QString& button, const QString& part = u"ftp.x.org cannot be reached"_s) {
        prompts_.expect_form(u"frmReconnect"_s, [=](const FormHand& form) {
            EXPECT_THAT(form.widget<QLabel>(u"lblMessage"_s).text(), Holds(part));
            button.isEmpty() ? static_cast<void>(form.form().close()) : static_cast<void>(form.click(button));
        });
    }

    ScriptedFunctions functions_;
};

TEST_F(ConnectionForms, NobodyIsAskedWhileConnectedOrAboutAHostNearby) {
    EXPECT_TRUE(ensured());
    functions_.state.connected = false;
    for (const QString& host : {u"127.0.0.1:2121"_s, u"192.168.1.20"_s, u"nas"_s}) EXPECT_TRUE(ensured(host));
    for (const QString& cancelling : {u"cmdCancel"_s, QString()}) {
        expect_reconnect(cancelling);
        EXPECT_FALSE(ensured());
    }
    expect_reconnect(u"cmdContinua"_s);
    EXPECT_TRUE(ensured());
}

TEST_F(ConnectionForms, TryAgainLooksForAWhileAndGoesOnAsSoonAsItIsBack) {
    functions_.state.connected = false;
    expect_reconnect(u"OKButton"_s);
    prompts_.expect_form(u"frmConnection"_s,
                         [](const FormHand& form) { form.photograph(u"frmConnection"_s).click(u"CancelButton"_s); });
    expect_reconnect(u"OKButton"_s);
    functions_.at_refresh = [this, refreshed = 0]() mutable { functions_.state.connected = ++refreshed > 3; };
    prompts_.expect_form(u"frmConnection"_s, [](const FormHand& form) {
        form.form().findChild<QTimer*>(u"Timer1"_s)->setInterval(1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !form.form().isVisible(); }));
    });
    EXPECT_TRUE(ensured());
}

TEST_F(ConnectionForms, OffLineModeIsLeftOnlyByTheButtonForIt) {
    functions_.state.bits |= 0x20;
    functions_.permission = [&] { return permits_online(workbench(), u"ftp.x.org"_s); };
    expect_reconnect(u"cmdAnnulla"_s, u"works off line"_s);
    EXPECT_FALSE(ensured());
    functions_.error = 0;
    expect_reconnect(u"OKButton"_s, u"works off line"_s);
    EXPECT_TRUE(ensured());
    EXPECT_EQ(functions_.calls.constLast(), u"go ftp://ftp.x.org");
}

TEST_F(ConnectionForms, StateWindowShowsTheStateAndSwitchesOffLine) {
    CWinInetConnection connection(functions_);
    EXPECT_TRUE(connection.Refresh());
    frmConnectionState form(workbench(), connection, functions_);
    prompts_.expect_form(u"frmConnectionState"_s, [&](const FormHand& hand) {
        EXPECT_THAT(hand.widget<QLabel>(u"lblDetails"_s).text(), Holds(u"eth0\nThe system has one"_s));
        hand.click(u"chkOffline"_s).click(u"chkOffline"_s);
        EXPECT_EQ(functions_.calls, QStringList({u"off"_s, u"on"_s}));
        functions_.error = 5;
        prompts_.expect_message(u"Win32API Error: 5 "_s);
        hand.click(u"chkOffline"_s);
        EXPECT_FALSE(hand.widget<QCheckBox>(u"chkOffline"_s).isChecked());
        hand.photograph(u"frmConnectionState"_s).click(u"OKButton"_s);
    });
    EXPECT_TRUE(prompts_.run(form));
}

TEST_F(ConnectionForms, CommandShowsThisMachineOffLineInItsOwnWindow) {
    settings_.setValue(u"Publish/Off Line"_s, true);
    run_form(u"mnu_connessione"_s, u"frmConnectionState1"_s, [](const FormHand& form) {
        EXPECT_EQ(form.widget<QLabel>(u"lblState"_s).text(), u"Pondera works off line.");
        form.photograph(u"frmConnectionState1"_s).click(u"chkOffline"_s);
        EXPECT_THAT(form.widget<QLabel>(u"lblState"_s).text(), Holds(u"connected to the Internet."_s));
        form.click(u"OKButton"_s);
    });
    EXPECT_FALSE(settings_.value(u"Publish/Off Line"_s).toBool());
}

}  // namespace pondera
