#include "publish/commands/command_executor.h"
#include "publish/ftp/connect_task.h"
#include "publish/ftp/verify_task.h"
#include "publish/transfer/remote_name.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/control.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/support/tables.h"

namespace pondera {
namespace {

/// Tasks on a server, one after the other, with the commands that they gave.
struct Line {
    explicit Line(const QString& host) {
        control.inet.set_host(host);
        QObject::connect(&executor, &CommandExecutor::Executing,
                         [this](const QString& command) { commands << command; });
    }
    template <typename Task>
    std::shared_ptr<Task> run(std::shared_ptr<Task> task) {
        commands.clear();
        executor.run(task);
        Control::wait_until([&] { return !executor.busy(); });
        EXPECT_TRUE(executor.ready()) << executor.status().toStdString();
        return task;
    }

    Control control;
    CommandExecutor executor{control.inet, 5000};
    QStringList commands;
};

class TasksOnServers : public testing::TestWithParam<RealServer::Kind> {
  protected:
    RealServer server_{GetParam(), false};
    Line line_{server_.host()};
};

INSTANTIATE_TEST_SUITE_P(Both, TasksOnServers,
                         testing::Values(RealServer::Kind::kVsftpd, RealServer::Kind::kPyftpdlib));

TEST_P(TasksOnServers, ConnectingNotesWhatIsMissingAndGoesNowhereElse) {
    const QString site = resolve_remote(server_.remote_root(), u"Vantiles/My Shop"_s);
    const auto go = [this] {
        return line_.run(std::make_shared<ConnectTask>(QStringList{u"Vantiles"_s, u"My Shop"_s}));
    };
    auto task = go();
    EXPECT_EQ(line_.commands, QStringList(u"CD Vantiles"_s));
    EXPECT_FALSE(task->present());
    EXPECT_EQ(task->remote_folder(), site);

    Line second(server_.host());
    QDir().mkpath(server_.path(u"Vantiles/My Shop"_s));
    ASSERT_TRUE(write_file(server_.path(u"Vantiles/My Shop/index.htm"_s), "x"));
    task = second.run(std::make_shared<ConnectTask>(QStringList{u"Vantiles"_s, u"My Shop"_s}));
    EXPECT_EQ(second.commands, QStringList({u"CD Vantiles"_s, u"CD \"My Shop\""_s, u"DIR"_s}));
    EXPECT_TRUE(task->present() && task->listed());
    EXPECT_EQ(task->remote_folder(), site);
    EXPECT_EQ(listed_names(task->listing()), QStringList(u"index.htm"_s));

    task = second.run(std::make_shared<ConnectTask>(QStringList(u"/no where"_s)));
    EXPECT_FALSE(task->present());
    EXPECT_EQ(task->remote_folder(), u"/no where");
}

TEST_P(TasksOnServers, VerifyingListsTheMediaFoldersWithFewCommands) {
    const QString root = server_.remote_root();
    for (const QString& folder : {u"media/img/inner"_s, u"media/audio"_s}) QDir().mkpath(server_.path(folder));
    ASSERT_TRUE(write_file(server_.path(u"media/img/Sea.jpg"_s), "sea"));
    ASSERT_TRUE(write_file(server_.path(u"media/audio/song.mp3"_s), "lala"));
    line_.run(std::make_shared<ConnectTask>(QStringList(root)));
    const auto task = line_.run(std::make_shared<VerifyTask>(root, QStringList{u"img"_s, u"audio"_s}));
    EXPECT_EQ(line_.commands.join(u", "_s), u"CD media, CD img, DIR, CDUP, CD audio, DIR");
    EXPECT_EQ(task->found().sizes,
              (QHash<QString, qint64>{{u"media/img/Sea.jpg"_s, 3}, {u"media/audio/song.mp3"_s, 4}}));
    EXPECT_EQ(task->found().listed_folders, QStringList({u"media/img"_s, u"media/audio"_s}));
    EXPECT_EQ(task->found().folders, QStringList({u"media"_s, u"media/img"_s, u"media/audio"_s}));
}

TEST_P(TasksOnServers, AWayThatIsRefusedIsTriedOnceMoreAndNoListingIsTakenForAnother) {
    const QString root = server_.remote_root();
    struct Case {
        QString there;
        QString commands;
        qsizetype found;
    };
    for (const Case& c : std::initializer_list<Case>{
             {u"."_s, u"CD media, CD media"_s, 0},
             {u"media"_s, u"CD media, CD img, CD media, DIR, CD img, CD media, CD audio, CD media, DIR, CD audio"_s, 0},
             {u"media/audio"_s, u"CD media, CD img, CD media, DIR, CD img, CD media, CD audio, DIR"_s, 1},
             {u"media/img"_s, u"CD media, CD img, DIR, CDUP, CD audio, CD media, DIR, CD audio"_s, 1},
         }) {
        QDir().mkpath(server_.path(c.there));
        ASSERT_TRUE(write_file(server_.path(c.there + u"/a.jpg"_s), "x"));
        line_.run(std::make_shared<ConnectTask>(QStringList(root)));
        const auto task = line_.run(std::make_shared<VerifyTask>(root, QStringList{u"img"_s, u"audio"_s}));
        QStringList commands = line_.commands;
        commands.removeAll(u"CD "_s + root);
        EXPECT_EQ(commands.join(u", "_s), c.commands);
        EXPECT_EQ(task->found().listed_folders, QStringList({u"media/img"_s, u"media/audio"_s}))
            << c.there.toStdString();
        EXPECT_EQ(task->found().sizes.size(), c.found);
        QDir(server_.path(u"media"_s)).removeRecursively();
    }
}

}  // namespace

TEST(ListedNames, AreThoseOfPicturesSoundsAndPagesWithinBounds) {
    QByteArray lines;
    for (const char* name :
         {"Sea.JPG", "a.gif", "song.mp3", "index.htm", ".hidden.jpg", "a.jpeg", "a.html", "jpg", ".htm"})
        lines += "type=file;size=1; " + QByteArray(name) + "\r\n";
    lines += "type=dir; folder\r\n";
    EXPECT_EQ(listed_names(parse_listing(lines)).join(u' '), u"Sea.JPG a.gif song.mp3 index.htm");
    lines.clear();
    for (int i = 0; i < 10'002; ++i) lines += "type=file;size=1; " + QByteArray::number(i) + ".jpg\n";
    EXPECT_EQ(listed_names(parse_listing(lines)).size(), 10'001);
}

}  // namespace pondera
