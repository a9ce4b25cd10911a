#include "base/roots.h"

#include <QElapsedTimer>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(Roots, FixedPathsLieBelowTheBaseFolder) {
    const Roots roots(u"/home/ann/Pondera_Folder/"_s);
    const std::vector<std::pair<QString, QString>> cases{
        {u"C:\\Pondera_Folder\\Pondera\\Shop\\index.htm"_s, u"/home/ann/Pondera_Folder/Pondera/Shop/index.htm"_s},
        {u"c:/pondera_folder/pondera/pondera_system/media/x.JPG"_s,
         u"/home/ann/Pondera_Folder/Pondera/Pondera_System/media/x.JPG"_s},
        {u"c:\\PONDERA_FOLDER\\pondera graphic"_s, u"/home/ann/Pondera_Folder/Pondera Graphic"_s},
        {u"c:\\pondera_folder\\pondera\\ftp_total\\"_s, u"/home/ann/Pondera_Folder/Pondera/FTP_TOTAL"_s},
        {u"C:\\Pondera_Folder\\Pondera\\Shop\\ftp\\a"_s, u"/home/ann/Pondera_Folder/Pondera/Shop/ftp/a"_s},
        {u"C:\\Pondera_Folder\\..\\..\\etc"_s, u"/home/ann/etc"_s},
        {u"C:\\Documenti"_s, u"/home/ann/Documenti"_s},
        {u"C:\\"_s, u"/home/ann"_s},
        {u"media/img/a.gif"_s, u"media/img/a.gif"_s},
        {u"D:\\Pictures"_s, u"D:\\Pictures"_s},
    };
    for (const auto& [fixed, native] : cases) EXPECT_EQ(roots.native(fixed), native) << fixed.toStdString();
}

TEST(Roots, EverySpellingOfTheWebsitesRootIsReplaced) {
    const Roots roots(u"/home/ann é+(1) & co/Pondera_Folder"_s);
    for (const QString& spelling : {
             u"C:\\pondera_folder\\pondera\\"_s,
             u"c:/Pondera_Folder/PONDERA/"_s,
             u"C:\\\\Pondera_Folder\\\\Pondera\\\\"_s,
             u"file:///C:/Pondera_Folder/Pondera/"_s,
             u"FILE://C:\\Pondera_Folder\\Pondera\\"_s,
             u"file:///C%3A%5Cpondera%5Ffolder%5Cpondera%5C"_s,
             u"file://localhost/c|/pondera_folder/pondera/"_s,
             u"/home/ann é+(1) & co/Pondera_Folder/Pondera/"_s,
             u"\\home\\ann é+(1) & co\\Pondera_Folder\\Pondera\\"_s,
             u"/home/ann é+(1) &amp; co/Pondera_Folder/Pondera/"_s,
             u"file:///home/ann%20%C3%A9+(1)%20&amp;%20co/Pondera_Folder/Pondera/"_s,
             u"file:///home/ann%20%c3%a9%2B%281%29%20%26%20co/Pondera%5fFolder/Pondera/"_s,
             u"file://localhost/home/ann%20é+(1)%20&%20co/Pondera_Folder/Pondera//"_s,
         })
        EXPECT_EQ(roots.replace_websites_root(u"%2F<IMG src=\"%1Shop%5ca.gif\">%2F"_s.arg(spelling), u"..\\"_s),
                  u"%2F<IMG src=\"..\\Shop/a.gif\">%2F"_s)
            << spelling.toStdString();
}

TEST(Roots, OtherPathsStay) {
    const Roots roots(u"/srv/Pondera_Folder"_s);
    for (const QString& other : {
             u"C:\\Pondera_Folder\\Pondera Graphic\\a.gif"_s,
             u"C:\\Pondera_Folder\\PonderaX\\a.gif"_s,
             u"D:\\Pondera_Folder\\Pondera\\a.gif"_s,
             u"/srv/Pondera_Folder/Pondera Graphic/a.gif"_s,
             u"http://example.org/srv/Pondera_Folder/Pondera/a.gif"_s,
             u"/home/srv/Pondera_Folder/Pondera/a.gif"_s,
             u"/SRV/Pondera_Folder/Pondera/a.gif"_s,
         })
        EXPECT_EQ(roots.replace_websites_root(other, u"../"_s), other);
}

TEST(Roots, NothingInAPageHidesThePathsBehindIt) {
    const Roots roots(u"/srv/Pondera_Folder"_s);
    for (const QString& awkward : {QString(QChar(0xD83D)), QString(QChar(0xDE00)), u"file:"_s + QString(100'000, u'/'),
                                   u"C:/Pondera_Folder"_s + u"%5C"_s.repeated(50'000), u"😀"_s}) {
        const QString page = awkward + u"\"C:/Pondera_Folder/Pondera/a\""_s;
        EXPECT_EQ(roots.replace_websites_root(page, {}), awkward + u"\"a\""_s);
    }
}

TEST(Roots, AMegabyteIsSearchedInAMoment) {
    const Roots roots(u"/home/ann/Pondera_Folder"_s);
    const QString link =
        u"<A href=\"file:///home/ann/Pondera_Folder/Pondera/Shop/_4_Subject.htm\">file: C: /home/</A>\r\n"_s;
    const QString page = link.repeated(12'000);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(roots.replace_websites_root(page, u"../"_s).count(u"\"../Shop/"_s), 12'000);
    EXPECT_LT(timer.elapsed(), 1'000);
}

}  // namespace

}  // namespace pondera
