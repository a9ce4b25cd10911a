#include "publish/cdrom/multimedia_package.h"

#include "base/roots.h"
#include "publish/cdrom/multimedia_drives.h"
#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

class MultimediaPackage : public testing::Test {
  protected:
    void SetUp() override {
        drive_.put_all(u"Pondera_Folder/Pondera/Shop"_s, u"çindex.htm §_4_Sea.htm media/img/sea.jpg"_s);
        have(u"index.htm"_s, "<A href=\"" + roots_.website(u"Shop"_s).toUtf8() + "/_4_Sea.htm\">home</A>");
        have(u"_4_Sea.htm"_s, "sea");
        drive_.put_all(kTools, u"pnd.ico pndsetup.so pndplay.so multimedia.exe autorun.sh"_s, "tool");
        drive_.put_all(kTools + u"Player Setup"_s, u"Player.exe Uninstall.exe Inserisci_CD.gif"_s, "setup");
        drive_.put(kTools + u"AUTORUN.INF"_s, "icon=Install %NAME%\\pnd.ico\r\n");
        drive_.put(kTools + u"Start.htm"_s, "<A href=\"%ADDRESS%/index.htm\">%NAME%</A>");
    }

    void have(const QString& file, const QByteArray& bytes) const {
        drive_.put(u"Pondera_Folder/Pondera/Shop/"_s + file, bytes);
    }
    void lose(const QString& path) const { ASSERT_TRUE(QFile::remove(drive_.path(path))) << path.toStdString(); }
    [[nodiscard]] QStringList make() const { return create_multimedia(roots_, u"Shop"_s, roots_.drive_root()).faults; }
    [[nodiscard]] QString package() const { return text_of_folder(drive_.path(u"Shop Multimedia"_s)); }

    const QString kTools = u"Pondera_Folder/Pondera/Pondera_Tools/"_s;
    const QString kWhole =
        u"AUTORUN.INF=icon=Install Shop\\pnd.ico\r\n "
        "Install Shop/Inserisci_CD.gif=setup Install Shop/Install Shop.exe=setup Install Shop/Uninstall.exe=setup "
        "Install Shop/pnd.ico=tool Install Shop/pndsetup.so=tool "
        "Shop/_4_Sea.htm=sea Shop/index.htm=<A href=\"_4_Sea.htm\">home</A> Shop/media/img/sea.jpg=x "
        "Start.htm=<A href=\"Shop/index.htm\">Shop</A> autorun.sh=tool multimedia.exe=tool pndplay.so=tool"_s;
    TestFolder drive_;
    Roots roots_{drive_.path(u"Pondera_Folder"_s)};
};

TEST_F(MultimediaPackage, HoldsThePlayerTheInstallerAndThePreparedPages) {
    const QString root = multimedia_drives(roots_).first().root + u'/';
    EXPECT_EQ(create_multimedia(roots_, u"Shop"_s, root).faults, QStringList());
    EXPECT_EQ(package(), kWhole);
}

TEST_F(MultimediaPackage, MadeAgainItFollowsTheWebsiteAndLeavesWhatOthersPutThere) {
    have(u"media/img/old.jpg"_s, "old");
    have(u"_4_Old.htm"_s, "old");
    ASSERT_EQ(make(), QStringList());
    const QStringList others{u"notes.txt"_s, u"Shop/media/img/mine.jpg"_s, u"Shop/_4_Old.htm"_s};
    for (const QString& file : others) drive_.put(u"Shop Multimedia/"_s + file, "mine");
    for (const QString& file : {u"Shop/_4_Sea.htm"_s, u"multimedia.exe"_s})
        drive_.put(u"Shop Multimedia/"_s + file, "of an older version");
    for (const QString& file : {u"media/img/old.jpg"_s, u"_4_Old.htm"_s})
        lose(u"Pondera_Folder/Pondera/Shop/"_s + file);
    EXPECT_EQ(make(), QStringList());
    for (const QString& file : others) {
        EXPECT_EQ(drive_.bytes(u"Shop Multimedia/"_s + file), "mine") << file.toStdString();
        lose(u"Shop Multimedia/"_s + file);
    }
    EXPECT_EQ(package(), kWhole);
}

TEST_F(MultimediaPackage, AnyNameIsWrittenAsItsReadersUnderstandIt) {
    const QString name = u"Caffè & 50%"_s;
    drive_.put(u"Pondera_Folder/Pondera/%1/index.htm"_s.arg(name), "home");
    EXPECT_TRUE(create_multimedia(roots_, name, roots_.drive_root()).success());
    const QString package = name + u" Multimedia/"_s;
    EXPECT_EQ(drive_.bytes(package + u"Start.htm"_s),
              "<A href=\"Caff%C3%A8%20%26%2050%25/index.htm\">Caffè &amp; 50%</A>");
    EXPECT_EQ(decode_text(drive_.bytes(package + u"AUTORUN.INF"_s)).text, u"icon=Install %1\\pnd.ico\r\n"_s.arg(name));
    EXPECT_TRUE(drive_.bytes(package + u"AUTORUN.INF"_s).startsWith("\xFF\xFE"));
}

TEST_F(MultimediaPackage, GoesOnAfterWhatFailed) {
    for (const QString& missing : {u"AUTORUN.INF"_s, u"pndsetup.so"_s, u"Player Setup/Player.exe"_s}) {
        const QByteArray bytes = drive_.bytes(kTools + missing);
        lose(kTools + missing);
        EXPECT_EQ(make(), QStringList(u"Error occurred in the copy of file '%1': %2 does not exist."_s.arg(
                              missing.section(u'/', -1), QDir(roots_.tools_folder()).filePath(missing))));
        EXPECT_EQ(drive_.bytes(u"Shop Multimedia/Shop/_4_Sea.htm"_s), "sea");
        drive_.put(kTools + missing, bytes);
        ASSERT_TRUE(QDir(drive_.path(u"Shop Multimedia"_s)).removeRecursively());
    }
}

TEST_F(MultimediaPackage, TellsWhatStandsInTheWayAndMakesTheRest) {
    const QString folder = drive_.path(u"Shop Multimedia"_s);
    const QString no_folder = u"Error in the creation of the folder: "_s;
    for (const auto& [in_the_way, fault] : std::initializer_list<std::pair<QString, QString>>{
             {u""_s, no_folder + folder},
             {u"/Install Shop"_s, no_folder + folder + u"/Install Shop"_s},
             {u"/Shop"_s, no_folder + folder + u"/Shop"_s},
             {u"/Shop/media"_s, u"Errore nella copia dei files."_s}}) {
        drive_.put(u"Shop Multimedia"_s + in_the_way);
        const QStringList faults = make();
        ASSERT_EQ(faults.size(), 1) << in_the_way.toStdString();
        EXPECT_EQ(faults.first().section(u'\n', 0, 0), fault);
        EXPECT_THAT(faults.first().section(u'\n', 1), Holds(folder + in_the_way));
        EXPECT_EQ(QFileInfo::exists(folder + u"/multimedia.exe"_s), !in_the_way.isEmpty());
        EXPECT_EQ(QFileInfo::exists(folder + u"/Shop/_4_Sea.htm"_s), in_the_way == u"/Install Shop");
        ASSERT_TRUE(QFile::remove(folder) || QDir(folder).removeRecursively());
    }
}

TEST_F(MultimediaPackage, CancelledANewPackageIsGoneAndAnOlderOneStays) {
    const auto cancelled_at = [&](int last) {
        return create_multimedia(roots_, u"Shop"_s, roots_.drive_root(), [&](int done, int) { return done < last; });
    };
    int steps = 0;
    for (MultimediaEnd end{{}, true}; end.cancelled; ++steps) {
        end = cancelled_at(steps);
        EXPECT_EQ(end.faults, QStringList());
        EXPECT_EQ(QFileInfo::exists(drive_.path(u"Shop Multimedia"_s)), !end.cancelled) << steps;
    }
    EXPECT_GT(steps, 12);
    EXPECT_EQ(package(), kWhole);
    drive_.put(u"Shop Multimedia/notes.txt"_s, "mine");
    EXPECT_TRUE(cancelled_at(3).cancelled);
    EXPECT_EQ(drive_.bytes(u"Shop Multimedia/notes.txt"_s), "mine");
}

}  // namespace pondera
