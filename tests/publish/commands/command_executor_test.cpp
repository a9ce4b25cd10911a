#include "publish/commands/command_executor.h"

#include "tests/publish/commands/session.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {

/// Pushes its turns one after the other and notes the answers; drops the rest of a turn whose "CD" was refused.
class Turns : public RemoteTask {
  public:
    explicit Turns(QList<QStringList> turns) : turns_(std::move(turns)) {}

    void next_turn(CommandStack& stack, const QString&) override {
        if (!turns_.isEmpty()) stack.push_in_running_order(turns_.takeFirst());
    }
    void answered(const CommandAnswer& answer, CommandStack& stack) override {
        answers << u"%1 %2 %3"_s.arg(answer.command).arg(answer.code).arg(answer.folder.section(u'/', -1));
        if (!answer.fine() && answer.command.startsWith(u"CD ")) stack.clear();
    }

    QStringList answers;

  private:
    QList<QStringList> turns_;
};

TEST(CommandExecutor, DoesATaskTurnByTurnAndIsReadyAgainWithTheRepliesBelow) {
    const RealServer server(RealServer::Kind::kVsftpd, false);
    Session session(server.host());
    EXPECT_FALSE(session.executor.ready());
    const auto task = session.run(std::make_shared<Turns>(
        QList<QStringList>{{u"MKDIR a"_s, u"CD a"_s}, {u"CD nowhere"_s, u"MKDIR wrong"_s}, {u"DIR"_s}}));
    EXPECT_EQ(task->answers.sliced(1), QStringList({u"CD a 0 a"_s, u"CD nowhere 12003 a"_s, u"DIR 0 a"_s}));
    EXPECT_EQ(server.names(u"a"_s), QStringList());
    EXPECT_TRUE(session.executor.ready());
    EXPECT_THAT(session.executor.status().toStdString(), testing::StartsWith("Connected.\n12003 : 550 "));
    EXPECT_TRUE(session.statuses.contains(u"Waiting for reply from Server.."_s));
    EXPECT_EQ(session.end.how, TaskEnd::How::kDone);
}

TEST(CommandExecutor, DropsWhatIsPendingWhenTheSessionBreaksOrIsCancelled) {
    BadServer server;
    server.replies = {{"MKD /home/breaks", "hang up"}, {"MKD /home/hangs", ""}};
    Session session(server.host());
    const auto broken =
        std::make_shared<Turns>(QList<QStringList>{{u"MKDIR breaks"_s, u"MKDIR never"_s}, {u"MKDIR never"_s}});
    EXPECT_EQ(session.run(broken)->answers, QStringList());
    EXPECT_EQ(session.end.how, TaskEnd::How::kBroken);
    EXPECT_EQ(session.executor.status(), u"The server signalled an error!"_s);
    EXPECT_FALSE(session.executor.ready());

    session.executor.run(std::make_shared<Turns>(QList<QStringList>{{u"MKDIR hangs"_s, u"MKDIR never"_s}}));
    Control::wait_until([&] { return server.count("MKD /home/hangs") > 0; });
    session.executor.cancel();
    EXPECT_EQ(session.end.how, TaskEnd::How::kCancelled);
    EXPECT_EQ(session.executor.status(), u"Disconnected"_s);
    EXPECT_FALSE(session.executor.busy());
    EXPECT_EQ(server.count("MKD /home/never"), 0);
}

}  // namespace pondera
