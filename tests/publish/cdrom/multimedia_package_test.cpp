#include "publish/cdrom/multimedia_package.h"

#include <QFile>

#include "base/roots.h"
#include "publish/cdrom/multimedia_drives.h"
#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

class MultimediaPackage : public testing::Test {
  protected:
    void SetUp() override {
        for (const QString& file : u"çindex.htm §_4_Sea.htm media/img/sea.jpg"_s.split(u' ')) have(file, "x");
        have(u"index.htm"_s, "<A href=\"" + roots_.website(u"Shop"_s).toUtf8() + "/_4_Sea.htm\">home</A>");
        have(u"_4_Sea.htm"_s, "sea");
        for (const QString& tool : u"pnd.ico pndsetup.so pndplay.so multimedia.exe autorun.sh"_s.split(u' '))
            drive_.put(kTools + tool, "tool");
        for (const QString& tool : u"Player.exe Uninstall.exe Inserisci_CD.gif"_s.split(u' '))
            drive_.put(kTools + u"Player Setup/"_s + tool, "setup");
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
    QList<double> shares;
    const QString root = multimedia_drives(roots_).first().root + u'/';
    const auto end = create_multimedia(roots_, u"Shop"_s, root, [&](int done, int total) {
        shares += static_cast<double>(done) / total;
        return true;
    });
    EXPECT_TRUE(end.success()) << end.faults.join(u'\n').toStdString();
    EXPECT_EQ(package(), kWhole);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_THAT(shares.last(), testing::AllOf(testing::Gt(0.9), testing::Le(1.0)));
}

TEST_F(MultimediaPackage, MadeAgainItFollowsTheWebsiteAndLeavesWhatOthersPutThere) {
    have(u"media/img/old.jpg"_s, "old");
    have(u"_4_Old.htm"_s, "old");
    ASSERT_EQ(make(), QStringList());
    drive_.put(u"Shop Multimedia/notes.txt"_s, "mine");
    drive_.put(u"Shop Multimedia/Shop/media/img/mine.jpg"_s, "mine");
    drive_.put(u"Shop Multimedia/Shop/_4_Old.htm"_s, "mine now");
    drive_.put(u"Shop Multimedia/Shop/_4_Sea.htm"_s, "bad");
    drive_.put(u"Shop Multimedia/multimedia.exe"_s, "of an older version");
    for (const QString& file : {u"media/img/old.jpg"_s, u"_4_Old.htm"_s})
        lose(u"Pondera_Folder/Pondera/Shop/"_s + file);
    EXPECT_EQ(make(), QStringList());
    EXPECT_EQ(drive_.bytes(u"Shop Multimedia/notes.txt"_s), "mine");
    EXPECT_EQ(drive_.bytes(u"Shop Multimedia/Shop/media/img/mine.jpg"_s), "mine");
    EXPECT_EQ(drive_.bytes(u"Shop Multimedia/Shop/_4_Old.htm"_s), "mine now");
    for (const QString& file : {u"notes.txt"_s, u"Shop/media/img/mine.jpg"_s, u"Shop/_4_Old.htm"_s})
        lose(u"Shop Multimedia/"_s + file);
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
    struct Row {
        QString missing;  // in the tools folder
        QString name;
    };
    for (const Row& row : {Row{u"AUTORUN.INF"_s, u"AUTORUN.INF"_s}, Row{u"pndsetup.so"_s, u"pndsetup.so"_s},
                           Row{u"Player Setup/Player.exe"_s, u"Player.exe"_s}}) {
        const QByteArray bytes = drive_.bytes(kTools + row.missing);
        lose(kTools + row.missing);
        EXPECT_EQ(make(), QStringList({u"Error occurred in the copy of file '%1': "_s.arg(row.name) +
                                       QDir(roots_.tools_folder()).filePath(row.missing) + u" does not exist."_s}));
        EXPECT_EQ(drive_.bytes(u"Shop Multimedia/Shop/_4_Sea.htm"_s), "sea");
        drive_.put(kTools + row.missing, bytes);
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
        EXPECT_THAT(faults.first().section(u'\n', 1),
                    testing::Truly([&](const QString& reason) { return reason.contains(folder + in_the_way); }));
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
