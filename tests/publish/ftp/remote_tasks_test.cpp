#include "publish/ftp/connect_task.h"
#include "publish/ftp/verify_task.h"
#include "publish/transfer/remote_name.h"
#include "tests/publish/commands/session.h"
#include "tests/publish/transfer/real_server.h"

namespace pondera {

class TasksOnServers : public testing::TestWithParam<RealServer::Kind> {
  protected:
    const RealServer server_{GetParam()};
    const QString root_ = server_.remote_root();
};

INSTANTIATE_TEST_SUITE_P(Both, TasksOnServers,
                         testing::Values(RealServer::Kind::kVsftpd, RealServer::Kind::kPyftpdlib));

TEST_P(TasksOnServers, ConnectingNotesWhatIsMissingAndGoesNowhereElse) {
    const QString site = resolve_remote(root_, u"Vantiles/My Shop"_s);
    for (const bool there : {false, true}) {
        if (there) server_.put(u"Vantiles/My Shop/index.htm"_s);
        Session session(server_.host());
        const auto task = session.run(std::make_shared<ConnectTask>(QStringList{u"Vantiles"_s, u"My Shop"_s}));
        EXPECT_EQ(session.commands.join(u", "_s), there ? u"CD Vantiles, CD \"My Shop\", DIR"_s : u"CD Vantiles"_s);
        EXPECT_EQ(task->present() && task->listed(), there);
        EXPECT_EQ(task->remote_folder(), site);
        EXPECT_EQ(listed_names(task->listing()).join(u' '), there ? u"index.htm"_s : QString());
    }
}

TEST_P(TasksOnServers, AWayThatIsRefusedIsTriedOnceMoreAndNoListingIsTakenForAnother) {
    struct Case {
        QString there, commands;
        qsizetype found;
    };
    for (const Case& c : std::initializer_list<Case>{
             {u"a.jpg"_s, u"CD media, CD media"_s, 0},
             {u"media/a.jpg"_s,
              u"CD media, CD img, CD media, DIR, CD img, CD media, CD audio, CD media, DIR, CD audio"_s, 0},
             {u"media/audio/a.jpg"_s, u"CD media, CD img, CD media, DIR, CD img, CD media, CD audio, DIR"_s, 1},
             {u"media/img/a.jpg"_s, u"CD media, CD img, DIR, CDUP, CD audio, CD media, DIR, CD audio"_s, 1},
             {u"media/img/a.jpg media/audio/a.jpg"_s, u"CD media, CD img, DIR, CDUP, CD audio, DIR"_s, 2},
         }) {
        for (const QString& file : c.there.split(u' ')) server_.put(file);
        Session session(server_.host());
        session.run(std::make_shared<ConnectTask>(QStringList(root_)));
        const auto task = session.run(std::make_shared<VerifyTask>(root_, QStringList{u"img"_s, u"audio"_s}));
        session.commands.removeAll(u"CD "_s + root_);
        EXPECT_EQ(session.commands.join(u", "_s), c.commands);
        EXPECT_EQ(task->found().listed_folders, QStringList({u"media/img"_s, u"media/audio"_s}))
            << c.there.toStdString();
        EXPECT_EQ(task->found().sizes.size(), c.found);
        EXPECT_EQ(task->found().sizes.value(u"media/img/a.jpg"_s), c.there.contains(u"img"_s) ? 1 : 0);
        QDir(server_.path(u"media"_s)).removeRecursively();
    }
}

TEST(ListedNames, AreThoseOfPicturesSoundsAndPagesWithinBounds) {
    const QByteArray lines = "; Sea.JPG; a.gif; song.mp3; index.htm; .hidden.jpg; a.jpeg; a.html; jpg; .htm";
    EXPECT_EQ(listed_names(parse_listing(QByteArray(lines).replace(";", "\r\ntype=file;size=1;"))).join(u' '),
              u"Sea.JPG a.gif song.mp3 index.htm");
    EXPECT_EQ(listed_names(parse_listing(QByteArray("type=file;size=1; a.jpg\n").repeated(10'002))).size(), 10'001);
}

}  // namespace pondera
