#include "publish/commands/command_executor.h"

#include <gmock/gmock.h>

#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {
namespace {

/// Pushes its turns one after the other and notes the answers; drops the rest of a turn whose "CD" was refused.
class Turns : public RemoteTask {
  public:
    explicit Turns(QList<QStringList> turns) : turns_(std::move(turns)) {}

    void next_turn(CommandStack& stack, const QString&) override {
        if (!turns_.isEmpty()) stack.push_in_running_order(turns_.takeFirst());
    }
    void answered(const CommandAnswer& answer, CommandStack& stack) override {
        ends << u"%1 %2 %3"_s.arg(answer.command).arg(answer.code).arg(answer.folder.section(u'/', -1));
        if (!answer.fine() && answer.command.startsWith(u"CD ")) stack.clear();
    }

    QStringList ends;

  private:
    QList<QStringList> turns_;
};

struct Execution {
    explicit Execution(const QString& host) {
        control.inet.set_host(host);
        QObject::connect(&executor, &CommandExecutor::StatusChanged, [this] { statuses << executor.status(); });
        QObject::connect(&executor, &CommandExecutor::Ended, [this](const TaskEnd& how) { ends << how; });
    }
    std::shared_ptr<Turns> run(QList<QStringList> turns) {
        auto task = std::make_shared<Turns>(std::move(turns));
        const qsizetype ended = ends.size();
        executor.run(task);
        Control::wait_until([&] { return ends.size() > ended; });
        return task;
    }

    Control control;
    CommandExecutor executor{control.inet, 5000};
    QStringList statuses;
    QList<TaskEnd> ends;
};

}  // namespace

TEST(CommandExecutor, DoesATaskTurnByTurnAndIsReadyAgainWithTheRepliesBelow) {
    const RealServer server(RealServer::Kind::kVsftpd, false);
    Execution execution(server.host());
    EXPECT_FALSE(execution.executor.ready());
    const auto task = execution.run({{u"MKDIR a"_s, u"CD a"_s}, {u"CD nowhere"_s, u"MKDIR wrong"_s}, {u"DIR"_s}});
    EXPECT_EQ(task->ends, QStringList({u"MKDIR a 0 %1"_s.arg(server.remote_root().section(u'/', -1)), u"CD a 0 a"_s,
                                       u"CD nowhere 12003 a"_s, u"DIR 0 a"_s}));
    EXPECT_EQ(server.names(u"a"_s), QStringList());
    EXPECT_TRUE(execution.executor.ready());
    EXPECT_THAT(execution.executor.status().toStdString(), testing::StartsWith("Connected.\n12003 : 550 "));
    EXPECT_TRUE(execution.statuses.contains(u"Waiting for reply from Server.."_s));
    EXPECT_EQ(execution.ends.constLast().how, TaskEnd::How::kDone);
}

TEST(CommandExecutor, DropsWhatIsPendingWhenTheSessionBreaksOrIsCancelled) {
    BadServer server;
    server.instead = [](const QByteArray& line) -> std::optional<QByteArray> {
        if (line.endsWith("/breaks")) return "hang up";
        if (line.endsWith("/hangs")) return "";
        return std::nullopt;
    };
    Execution execution(server.host());
    EXPECT_EQ(execution.run({{u"MKDIR breaks"_s, u"MKDIR never"_s}, {u"MKDIR never"_s}})->ends, QStringList());
    EXPECT_EQ(execution.ends.constLast().how, TaskEnd::How::kBroken);
    EXPECT_EQ(execution.executor.status(), u"The server signalled an error!"_s);
    EXPECT_FALSE(execution.executor.ready());

    auto task = std::make_shared<Turns>(QList<QStringList>{{u"MKDIR hangs"_s, u"MKDIR never"_s}});
    execution.executor.run(task);
    Control::wait_until([&] { return !server.commands.isEmpty() && server.commands.constLast().endsWith("/hangs"); });
    execution.executor.cancel();
    EXPECT_EQ(execution.ends.constLast().how, TaskEnd::How::kCancelled);
    EXPECT_EQ(execution.executor.status(), u"Disconnected"_s);
    EXPECT_FALSE(execution.executor.busy());
    EXPECT_TRUE(std::ranges::none_of(server.commands, [](const QByteArray& line) { return line.endsWith("never"); }));
}

}  // namespace pondera
