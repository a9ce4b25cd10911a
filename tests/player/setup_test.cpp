#include <QtWidgets>

#include "player/setup_window/setup_window.h"
#include "tests/player/package_fixture.h"
#include "tests/support/folder_text.h"

namespace pondera {

class Setup : public PackageFixture {
  protected:
    void SetUp() override {
        PackageFixture::SetUp();
        have(u"media/img/sea.jpg"_s, "sea");
        make_package();
        // Without the window's library the programs ask with the desktop's own dialogs.
        ASSERT_TRUE(remove_file(package(u"Install Shop/pndsetup.so"_s)));
    }

    [[nodiscard]] int install(int answer = 0) const {
        have_program(u"zenity"_s, answer);
        return run(package(u"Install Shop/Install Shop.exe"_s));
    }
    [[nodiscard]] QString home() const { return text_of_folder(machine_.path(u"home"_s)); }
};

TEST_F(Setup, InstallsAWholePlayerAndRemovesExactlyThat) {
    EXPECT_NE(install(1), 0);
    EXPECT_EQ(home(), u"");
    // It fails whole: a file stands where the entry's folder should be.
    machine_.put(u"home/.local/share/applications"_s, "a file");
    EXPECT_NE(install(), 0);
    EXPECT_THAT(arguments_of(u"zenity"_s), Holds(u"was not installed"_s));
    EXPECT_EQ(home(), u".local/share/applications=a file");
    ASSERT_TRUE(remove_file(installed(u"applications"_s)));
    ASSERT_EQ(install(), 0);
    const QString folder = u"Shop Multimedia/"_s;
    for (const QString& file :
         {u"multimedia.exe"_s, u"pndplay.so"_s, u"Shop/media/img/sea.jpg"_s, u"Install Shop/Uninstall.exe"_s})
        EXPECT_EQ(read_file(installed(folder + file)), read_file(package(file))) << file.toStdString();
    const auto entry = read_text_file(installed(u"applications/Shop Multimedia.desktop"_s));
    EXPECT_THAT(entry->text, Holds(u"\nExec=\"%1\"\n"_s.arg(installed(folder + u"multimedia.exe"_s))));
    EXPECT_THAT(entry->text, Holds(u"\nIcon=%1\n"_s.arg(installed(folder + u"Install Shop/pnd.ico"_s))));

    // What was installed works without the disc.
    ASSERT_TRUE(remove_file(installed(folder + u"pndplay.so"_s)));
    have_program(u"xdg-open"_s, 0);
    EXPECT_EQ(run(installed(folder + u"multimedia.exe"_s)), 0);
    EXPECT_EQ(arguments_of(u"xdg-open"_s), installed(folder + u"Shop/index.htm\n"_s));

    const QString mine = u"home/.local/share/Shop Multimedia/Shop/mine.txt"_s;
    machine_.put(mine, "mine");
    machine_.put(u"home/.local/share/applications/other.desktop"_s, "other");
    have_program(u"zenity"_s, 1);
    EXPECT_NE(run(installed(folder + u"Install Shop/Uninstall.exe"_s)), 0);
    EXPECT_TRUE(QFileInfo::exists(installed(folder + u"Shop/index.htm"_s)));
    have_program(u"zenity"_s, 0);
    EXPECT_EQ(run(installed(folder + u"Install Shop/Uninstall.exe"_s)), 0);
    EXPECT_THAT(arguments_of(u"zenity"_s), Holds(u"Shop/mine.txt"_s));
    EXPECT_EQ(home(), u".local/share/Shop Multimedia/Shop/mine.txt=mine .local/share/applications/other.desktop=other");
}

TEST_F(Setup, ANewerDiscTakesThePlaceOfAnOlderOne) {
    drive_.put(u"Shop Multimedia/Shop/_4_Old.htm"_s, "old");
    ASSERT_EQ(install(), 0);
    ASSERT_TRUE(remove_file(package(u"Shop/_4_Old.htm"_s)));
    drive_.put(u"Shop Multimedia/Shop/index.htm"_s, "new");
    ASSERT_EQ(install(), 0);
    EXPECT_EQ(machine_.bytes(u"home/.local/share/Shop Multimedia/Shop/index.htm"_s), "new");
    EXPECT_FALSE(QFileInfo::exists(installed(u"Shop Multimedia/Shop/_4_Old.htm"_s)));
}

TEST_F(Setup, NothingOfOthersIsTouched) {
    // A folder of that name that no installer made.
    const QString mine = u"home/.local/share/Shop Multimedia/index.htm"_s;
    machine_.put(mine, "mine");
    EXPECT_NE(install(), 0);
    EXPECT_THAT(arguments_of(u"zenity"_s), Holds(u"it is not of this Multimedia"_s));
    EXPECT_EQ(home(), u".local/share/Shop Multimedia/index.htm=mine");
    EXPECT_NE(run(package(u"Install Shop/Uninstall.exe"_s)), 0);
    ASSERT_TRUE(remove_file(machine_.path(mine)));
    ASSERT_TRUE(QDir(installed()).rmdir(u"Shop Multimedia"_s));

    // A list that was tampered with leads nowhere else, nor does a folder that became a link.
    ASSERT_EQ(install(), 0);
    machine_.put(u"other/index.htm"_s, "other");
    const QString list = u"home/.local/share/Shop Multimedia/installed_files.txt"_s;
    machine_.put(list, machine_.bytes(list) + "../../../../other/index.htm\n" +
                           machine_.path(u"other/index.htm"_s).toUtf8() + '\n');
    ASSERT_TRUE(QDir(installed(u"Shop Multimedia/Shop"_s)).removeRecursively());
    ASSERT_TRUE(QFile::link(machine_.path(u"other"_s), installed(u"Shop Multimedia/Shop"_s)));
    EXPECT_EQ(run(package(u"Install Shop/Uninstall.exe"_s)), 0);
    EXPECT_EQ(machine_.bytes(u"other/index.htm"_s), "other");
}

TEST_F(Setup, AsksForTheDiscThatIsNotThere) {
    // Of a Website that no disc in this machine's drives is of.
    const QString folder = machine_.path(u"Install Nowhere/"_s);
    ASSERT_TRUE(QDir().rename(package(u"Install Shop"_s), folder));
    ASSERT_TRUE(QFile::rename(folder + u"Install Shop.exe"_s, folder + u"Install Nowhere.exe"_s));
    have_program(u"zenity"_s, 1);
    EXPECT_NE(run(folder + u"Install Nowhere.exe"_s), 0);
    EXPECT_THAT(arguments_of(u"zenity"_s), Holds(u"Please insert the CD \"Nowhere\"."_s));
}

/// Presses a button of the box that is about to be shown; without one of that name the box is closed.
static void press(const QString& name) {
    QTimer::singleShot(0, qApp, [=] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        auto* button = box->findChild<QPushButton*>(name);
        button != nullptr ? button->click() : (void)box->close();
    });
}

TEST_F(Setup, TheWindowAsksTellsAndCanBeCancelled) {
    SetupWindow window(u"Install Shop"_s);
    for (const QString& button : {u"OKButton"_s, u"CancelButton"_s, u"(close)"_s}) {
        press(button);
        EXPECT_EQ(window.ask("Do you want it?", "Install", "Cancel"), button == u"OKButton");
    }
    press(u"OKButton"_s);
    EXPECT_TRUE(window.insert_disc("Please insert the CD \"Shop\".",
                                   package(u"Install Shop/Inserisci_CD.gif"_s).toLocal8Bit().constData()));
    EXPECT_TRUE(window.advance(1, 10));
    for (QWidget* top : QApplication::topLevelWidgets())
        if (auto* bar = qobject_cast<QProgressDialog*>(top)) bar->cancel();
    EXPECT_FALSE(window.advance(2, 10));
}

}  // namespace pondera
