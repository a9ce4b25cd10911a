#include "publish/hosted/account_task.h"

#include "publish/commands/command_executor.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {
namespace {

using Outcome = AccountTask::Outcome;

/// A session with a server, and the folder that the account file is brought to.
struct Session {
    explicit Session(const QString& host) {
        control.inet.set_host(host);
        control.inet.set_local_root(here.path());
        QObject::connect(&executor, &CommandExecutor::Executing,
                         [this](const QString& command) { commands << command.section(u' ', 0, 1); });
    }
    std::shared_ptr<AccountTask> check(const QString& domain, const QString& password) {
        auto task = std::make_shared<AccountTask>(service, domain, password, here.path(u"temp.txt"_s));
        executor.run(task);
        Control::wait_until([&] { return !executor.busy(); });
        return task;
    }

    TestFolder here;
    Control control;
    CommandExecutor executor{control.inet, 10'000};
    HostingService service;
    QStringList commands;
};

}  // namespace

TEST(AccountTask, GoesInWithTheSubDomainsPasswordOnly) {
    const RealServer server(RealServer::Kind::kVsftpd, false);
    for (const QString& folder : {u"public_html/bakery"_s, u"public_html/empty"_s}) QDir().mkpath(server.path(folder));
    ASSERT_TRUE(write_file(server.path(u"public_html/bakery/domain.txt"_s), "owner=Ann\r\npassword=bread\r\n"));
    const auto outcome = [&](const QString& domain, const QString& password) {
        Session session(server.host());
        const auto task = session.check(domain, password);
        EXPECT_FALSE(QFile::exists(session.here.path(u"temp.txt"_s)));
        EXPECT_EQ(session.commands.contains(u"DIR"_s), task->outcome() == Outcome::kAccepted);
        return task->outcome();
    };
    EXPECT_EQ(outcome(u"bakery"_s, u"BREAD"_s), Outcome::kRefused);
    EXPECT_EQ(outcome(u"nobody"_s, u"bread"_s), Outcome::kRefused);
    EXPECT_EQ(outcome(u"empty"_s, u""_s), Outcome::kRefused);
    EXPECT_EQ(outcome(u"bakery"_s, u"bread"_s), Outcome::kAccepted);

    Session session(server.host());
    const auto task = session.check(u"bakery"_s, u"bread"_s);
    EXPECT_EQ(task->remote_folder(), server.remote_root() + u"/public_html/bakery"_s);
    EXPECT_EQ(task->listing().entries.value(0).name, u"domain.txt");
    EXPECT_TRUE(session.executor.ready());
}

TEST(AccountTask, TellsAWrongServerAndAFolderInTheFilesPlace) {
    const RealServer server(RealServer::Kind::kPyftpdlib, false);
    Session session(server.host());
    EXPECT_EQ(session.check(u"bakery"_s, u"bread"_s)->outcome(), Outcome::kNoWebRoot);
    session.here.put(u"temp.txt/file"_s);
    const auto blocked = session.check(u"bakery"_s, u"bread"_s);
    EXPECT_EQ(blocked->outcome(), Outcome::kNoLocalCopy);
    EXPECT_FALSE(blocked->remove_copy());
}

TEST(AccountTask, CopyIsItsOwnersAndGoesWhenThePersonCancels) {
    BadServer server;
    QFileDevice::Permissions seen;
    bool asked = false;
    Session session(server.host());
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        if (!line.startsWith("RETR")) return std::nullopt;
        for (const QFileInfo& file : QDir(session.here.path()).entryInfoList(QDir::Files | QDir::Hidden))
            seen |= file.permissions();
        asked = true;
        return "";
    };
    session.executor.run(
        std::make_shared<AccountTask>(session.service, u"bakery"_s, u"bread"_s, session.here.path(u"temp.txt"_s)));
    Control::wait_until([&] { return asked; });
    session.executor.cancel();
    EXPECT_TRUE(seen.testFlag(QFileDevice::ReadOwner));
    EXPECT_FALSE(seen & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
    EXPECT_FALSE(QFile::exists(session.here.path(u"temp.txt"_s)));
}

}  // namespace pondera
