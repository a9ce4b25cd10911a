#include "publish/hosted/account_task.h"

#include "publish/commands/command_executor.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(AccountTask, CopyIsItsOwnersAndGoesWhenThePersonCancels) {
    BadServer server;
    const TestFolder here;
    Control control;
    CommandExecutor executor(control.inet, 10'000);
    control.inet.set_host(server.host());
    control.inet.set_local_root(here.path());
    QFileDevice::Permissions seen;
    bool asked = false;
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        if (!line.startsWith("RETR")) return std::nullopt;
        for (const QFileInfo& file : QDir(here.path()).entryInfoList(QDir::Files | QDir::Hidden))
            seen |= file.permissions();
        asked = true;
        return "";
    };
    const QString copy = here.path(u"temp.txt"_s);
    executor.run(std::make_shared<AccountTask>(HostingService{}, u"bakery"_s, u"bread"_s, copy));
    Control::wait_until([&] { return asked; });
    EXPECT_EQ(server.count("LIST"), 0);
    executor.cancel();
    EXPECT_TRUE(seen.testFlag(QFileDevice::ReadOwner));
    EXPECT_FALSE(seen & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
    EXPECT_FALSE(QFile::exists(copy));
}

}  // namespace pondera
