#include "publish/connection/cwininet_connection.h"

#include "publish/connection/connection_report.h"
#include "tests/publish/connection/scripted_functions.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(CWinInetConnection, FailuresAreToldByTheNumberThatTheSystemLeft) {
    ScriptedFunctions functions;
    CWinInetConnection connection(functions);
    const auto told = [&](const QString& number) {
        functions.error = number.toInt();
        const ConnectionResult result = connection.SetGlobalOffline();
        if (result) return u"nothing"_s;
        EXPECT_EQ(result.error().system_number(), functions.error);
        EXPECT_EQ(result.error().source, u"CWinInetConnection.SetGlobalOffline");
        return u"%1 [%2]"_s.arg(result.error().number + 0x7FFC0000).arg(result.error().description);
    };
    expect_results(told, {u"-3 → nothing", u"5 → 1005 [Win32API Error: 5 ]", u"12000 → 13000 [Win32API Error: 12000 ]",
                          u"12001 → 13001 [WinInet API Error: 12001 No more handles could be generated at this time]",
                          u"12003 → 13003 [WinInet API Error: 12003 Extended error returned from server.]",
                          u"12011 → 13011 [WinInet API Error: 12011 The request option can not be set, only queried. ]",
                          u"12032 → 13032 [WinInet API Error: 12032 Error details not available.]"});
    functions.response = u"550 Disk full"_s;
    expect_results(told, {u"12003 → 13003 [WinInet API Error: 12003 550 Disk full]",
                          u"12002 → 13002 [WinInet API Error: 12002 The request has timed out.]"});
}

TEST(CWinInetConnection, FlagsAreThoseOfTheLastRefreshAndAreToldInWords) {
    ScriptedFunctions functions;
    CWinInetConnection connection(functions);
    const auto refreshed = [&](bool connected, quint32 bits) {
        functions.state = {.connected = connected, .bits = bits, .name = u"eth0"_s};
        EXPECT_TRUE(connection.Refresh());
        const auto report = connection_report(connection, {.lan = connected, .ras = connection.UseModem()});
        return (QStringList{report.sentence, report.advice} + report.details).join(u'|');
    };
    EXPECT_EQ(refreshed(true, 0x40 | 0x02 | 0x04),
              u"This computer is connected to the Internet.||Connection: eth0|The system has one or more active LAN "
              "cards|The Internet is reached through a proxy server."_s);
    EXPECT_TRUE(connection.UseLAN() && connection.UseProxy() && connection.IsConnectionConfigured());
    EXPECT_FALSE(connection.UseModem() || connection.IsRasInstalled() || connection.IsOffline());
    EXPECT_THAT(refreshed(true, 0x20 | 0x10 | 0x01), Holds(u"works off line"_s));
    EXPECT_THAT(refreshed(false, 0), Holds(u"Wi-Fi"_s));
    EXPECT_THAT(refreshed(false, 0x40), Holds(u"router"_s));
    functions.error = 5;
    EXPECT_FALSE(connection.Refresh());
    EXPECT_FALSE(connection.IsConnected());
}

}  // namespace pondera
