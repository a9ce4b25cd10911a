#include "publish/connection/machine_connection.h"

#include <sched.h>
#include <thread>

#include "publish/connection/cwininet_connection.h"
#include "publish/connection/local_host.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

struct Machine {
    TestFolder folder;
    QSettings settings{folder.path(u"settings.ini"_s), QSettings::IniFormat};
    MachineConnection functions{settings};
    CWinInetConnection connection{functions};
};

TEST(MachineConnection, TellsTheTruthOfThisMachineWhichDoesNotDial) {
    Machine machine;
    EXPECT_EQ(machine.connection.Dial(u"Work"_s).error().description, u"Win32API Error: 120 ");
    EXPECT_FALSE(machine.connection.HangUp() || machine.connection.Autodial() || machine.connection.AutodialHangup());
    ASSERT_TRUE(machine.connection.Refresh());
    if (!machine.connection.IsConnected()) GTEST_SKIP() << "this machine has no way to the Internet";
    EXPECT_NE(machine.connection.ConnectionName(), u"");
    EXPECT_NE(machine.connection.UseLAN(), machine.connection.UseModem());
    EXPECT_EQ(machine.functions.IsNetworkAlive().lan, machine.connection.UseLAN());
}

TEST(MachineConnection, AMachineWithLoopbackAloneIsNotConnected) {
    bool alone = false;
    std::thread([&] {
        if (unshare(CLONE_NEWNET) != 0) return;  // needs root
        alone = true;
        Machine machine;
        EXPECT_TRUE(machine.connection.Refresh());
        EXPECT_FALSE(machine.connection.IsConnected() || machine.connection.IsConnectionConfigured());
        EXPECT_FALSE(machine.functions.IsNetworkAlive().lan);
    }).join();
    if (!alone) GTEST_SKIP() << "only root can part a thread from the network";
}

TEST(MachineConnection, OffLineIsKeptForTheUserAndLeftOnlyWithPermission) {
    Machine machine;
    bool permits = false;
    MachineConnection functions(machine.settings, [&](const QString&, quintptr) { return permits; });
    CWinInetConnection connection(functions);
    const QString url = u"ftp://ftp.x.org"_s;
    EXPECT_TRUE(connection.GoOnline(url));
    EXPECT_TRUE(connection.SetGlobalOffline());
    EXPECT_TRUE(machine.connection.Refresh() && machine.connection.IsOffline());
    EXPECT_EQ(connection.GoOnline(url).error().description, u"Win32API Error: 1223 ");
    EXPECT_EQ(connection.GoOnline(u"no address"_s).error().description, u"WinInet API Error: 12005 URL is invalid.");
    permits = true;
    EXPECT_TRUE(connection.GoOnline(url) && connection.Refresh());
    EXPECT_FALSE(connection.IsOffline());
}

TEST(LocalHost, IsReachedWithoutTheInternet) {
    const auto kind = [](const QString& host) { return is_local_host(host) ? u"local"_s : u"away"_s; };
    expect_results(kind,
                   {
                       u"127.0.0.1:2121 | [::1]:2121 | localhost | ftp://10.1.2.3/ | 172.31.0.9 → local",
                       u"sftp://192.168.1.20 | fd12::5 | fe80::1 | 169.254.7.7 | nas | Nas.LOCAL | box.lan → local",
                       u"ftp.x.org | 172.32.0.1 | 8.8.8.8 | 2001:db8::9 | local.org | no host at all → away",
                   });
}

}  // namespace pondera
