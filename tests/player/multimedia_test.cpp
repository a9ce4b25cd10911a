#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

#include "tests/player/package_fixture.h"
#include "tests/support/folder_text.h"

namespace pondera {

using Multimedia = PackageFixture;

TEST_F(Multimedia, ShowsTheHomePageInItsWindowAndWritesNothing) {
    // The page's script, which only an engine that shows the page runs, tells
    // this server so.
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QByteArray request;
    QObject::connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket* socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, &server, [&request, socket] { request += socket->readAll(); });
    });
    have(u"media/img/word.js"_s, "var word = 'shown';");
    have(u"index.htm"_s,
         "<HTML><BODY><SCRIPT src=\"media/img/word.js\"></SCRIPT><SCRIPT>new Image().src = "
         "'http://127.0.0.1:" +
             QByteArray::number(server.serverPort()) + "/' + word;</SCRIPT></BODY></HTML>");
    make_package();
    const QString before = text_of_folder(package());

    QProcess player;
    start(player, package(u"multimedia.exe"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return request.contains("GET /shown "); }, 30'000));
    EXPECT_EQ(player.state(), QProcess::Running);
    player.terminate();
    EXPECT_TRUE(player.waitForFinished());
    EXPECT_EQ(text_of_folder(package()), before);
}

TEST_F(Multimedia, OpensTheBrowserWhereTheWindowCannotBeShownElseSaysWhatToOpen) {
    make_package();
    const QString home = package(u"Shop/index.htm"_s);
    ASSERT_TRUE(remove_file(package(u"pndplay.so"_s)));
    have_program(u"zenity"_s, 0);
    EXPECT_NE(run(package(u"multimedia.exe"_s)), 0);
    EXPECT_THAT(arguments_of(u"zenity"_s), Holds(u"Open this page in a browser:\n"_s + home));
    // Folders that others put on the disc are not taken for the Website.
    drive_.put(u"Shop Multimedia/Album/index.htm"_s);
    have_program(u"xdg-open"_s, 3);
    have_program(u"sensible-browser"_s, 0);
    EXPECT_EQ(run(package(u"multimedia.exe"_s)), 0);
    EXPECT_EQ(arguments_of(u"xdg-open"_s), home + u'\n');
    EXPECT_EQ(arguments_of(u"sensible-browser"_s), home + u'\n');

    // The disc's own name is any; the library is there, but damaged.
    drive_.put(u"Shop Multimedia/pndplay.so"_s, "not a library");
    ASSERT_TRUE(QDir().rename(package(), machine_.path(u"CDROM"_s)));
    have_program(u"xdg-open"_s, 0);
    EXPECT_EQ(run(machine_.path(u"CDROM/autorun.sh"_s)), 0);
    EXPECT_EQ(arguments_of(u"xdg-open"_s), machine_.path(u"CDROM/Shop/index.htm\n"_s));
}

}  // namespace pondera
