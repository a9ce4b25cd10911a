#include "publish/connection/cwininet_connection.h"

#include "publish/connection/connection_report.h"
#include "tests/publish/connection/scripted_functions.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(CWinInetConnection, EveryRoutineCallsItsFunctionAndFailsUnderItsOwnName) {
    struct Row {
        QString name;
        QString call;
        std::function<ConnectionResult(CWinInetConnection&)> run;
    };
    const QList<Row> rows{
        {u"SetGlobalOnline"_s, u"on"_s, [](auto& it) { return it.SetGlobalOnline(); }},
        {u"SetGlobalOffline"_s, u"off"_s, [](auto& it) { return it.SetGlobalOffline(); }},
        {u"GoOnline"_s, u"go ftp://x.org"_s, [](auto& it) { return it.GoOnline(u"ftp://x.org"_s); }},
        {u"HangUp"_s, u"hang up"_s, [](auto& it) { return it.HangUp(); }},
        {u"Dial"_s, u"dial Work"_s, [](auto& it) { return it.Dial(u"Work"_s); }},
        {u"AutodialHangup"_s, u"autodial hang up"_s, [](auto& it) { return it.AutodialHangup(); }},
        {u"Autodial"_s, u"autodial"_s, [](auto& it) { return it.Autodial(); }},
        {u"Refresh"_s, {}, [](auto& it) { return it.Refresh(); }},
    };
    for (const Row& row : rows) {
        ScriptedFunctions functions;
        CWinInetConnection connection(functions);
        EXPECT_TRUE(row.run(connection));
        EXPECT_EQ(functions.calls.join(u'|'), row.call);
        functions.error = 5;
        EXPECT_EQ(row.run(connection).error().source, u"CWinInetConnection."_s + row.name);
    }
}

TEST(CWinInetConnection, FailuresAreToldByTheNumberThatTheSystemLeft) {
    ScriptedFunctions functions;
    CWinInetConnection connection(functions);
    const auto told = [&](const QString& number) {
        functions.error = number.toInt();
        const ConnectionResult result = connection.SetGlobalOffline();
        if (result) return u"nothing"_s;
        EXPECT_EQ(result.error().system_number(), functions.error);
        return u"%1 [%2]"_s.arg(result.error().number + 0x7FFC0000).arg(result.error().description);
    };
    expect_results(told,
                   {
                       u"-3 → nothing",
                       u"5 → 1005 [Win32API Error: 5 ]",
                       u"12000 → 13000 [Win32API Error: 12000 ]",
                       u"12001 → 13001 [WinInet API Error: 12001 No more handles could be generated at this time]",
                       u"12032 → 13032 [WinInet API Error: 12032 Error details not available.]",
                   });
}

TEST(CWinInetConnection, NumbersHaveTheirFixedTexts) {
    ScriptedFunctions functions;
    const CWinInetConnection connection(functions);
    const auto text = [&](const QString& number) { return connection.GetWinApiDesc(number.toInt()) + u'|'; };
    expect_results(
        text, {
                  u"0 | 12000 | 12032 | 12035 | 12037 → Error details not available.|",
                  u"12003 → Extended error returned from server.|",
                  u"12011 → The request option can not be set, only queried. |",
                  u"12013 → Request to connect and login to an FTP server could notbe completed because the supplied "
                  u"user name is incorrect.|",
                  u"12036 → The request failed because the handle already exists.|",
              });
    QStringList all;
    for (int number = 12001; number <= 12031; ++number) all << connection.GetWinApiDesc(number);
    EXPECT_EQ(all.removeDuplicates(), 0);
    EXPECT_FALSE(all.contains(connection.GetWinApiDesc(0)));
    functions.response = u""_s;
    EXPECT_EQ(connection.GetWinApiDesc(12003), u"Extended error returned from server."_s);
    functions.response = u"550 Disk full"_s;
    EXPECT_EQ(connection.GetWinApiDesc(12003), u"550 Disk full"_s);
    EXPECT_EQ(connection.GetWinApiDesc(12002), u"The request has timed out."_s);
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
    EXPECT_EQ(connection.ConnectionName(), u"eth0");
    EXPECT_TRUE(connection.UseLAN() && connection.UseProxy() && connection.IsConnectionConfigured());
    EXPECT_FALSE(connection.UseModem() || connection.IsRasInstalled() || connection.IsOffline());
    EXPECT_THAT(refreshed(true, 0x20 | 0x10 | 0x01), Holds(u"works off line"_s));
    EXPECT_THAT(refreshed(true, 0x01), Holds(u"The system has one or more active RAS connections"_s));
    EXPECT_THAT(refreshed(false, 0), Holds(u"Wi-Fi"_s));
    EXPECT_THAT(refreshed(false, 0x40), Holds(u"router"_s));
    functions.error = 5;
    EXPECT_FALSE(connection.Refresh());
    EXPECT_FALSE(connection.IsConnected());
}

}  // namespace pondera
