#include "base/roots.h"

#include "tests/support/tables.h"

namespace pondera {

TEST(Roots, FixedPathsLieBelowTheBaseFolder) {
    const Roots roots(u"/home/ann/Pondera_Folder/"_s);
    const auto native = [&](const QString& fixed) { return roots.native(fixed); };
    expect_results(native, {u"c:/pondera_folder/pondera/pondera_system/media/x.JPG"
                            u" → /home/ann/Pondera_Folder/Pondera/Pondera_System/media/x.JPG",
                            u"c:\\PONDERA_FOLDER\\pondera graphic → /home/ann/Pondera_Folder/Pondera Graphic",
                            u"C:\\Pondera_Folder\\Pondera\\Shop\\ftp\\a → /home/ann/Pondera_Folder/Pondera/Shop/ftp/a",
                            u"C:\\Pondera_Folder\\..\\..\\etc → /home/ann/etc", u"C:\\ → /home/ann"});
    expect_unchanged(native, {u"media/img/a.gif", u"D:\\Pictures"});
}

TEST(Roots, EverySpellingOfTheWebsitesRootIsReplaced) {
    const Roots roots(u"/home/ann é+(1) & co/Pondera_Folder"_s);
    for (const QString& spelling :
         {u"C:\\pondera_folder\\pondera\\"_s, u"C:\\\\Pondera_Folder\\\\Pondera\\\\"_s,
          u"file:///C:/Pondera_Folder/Pondera/"_s, u"FILE://C:\\Pondera_Folder\\Pondera\\"_s,
          u"file:///C%3A%5Cpondera%5Ffolder%5Cpondera%5C"_s, u"file://localhost/c|/pondera_folder/pondera/"_s,
          u"/home/ann é+(1) & co/Pondera_Folder/Pondera/"_s, u"\\home\\ann é+(1) & co\\Pondera_Folder\\Pondera\\"_s,
          u"/home/ann é+(1) &amp; co/Pondera_Folder/Pondera/"_s,
          u"file:///home/ann%20%C3%A9+(1)%20&amp;%20co/Pondera_Folder/Pondera/"_s,
          u"file:///home/ann%20%c3%a9%2B%281%29%20%26%20co/Pondera%5fFolder/Pondera/"_s,
          u"file://localhost/home/ann%20é+(1)%20&%20co/Pondera_Folder/Pondera//"_s})
        EXPECT_EQ(roots.replace_websites_root(u"%2F<IMG src=\"%1Shop%5ca.gif\">%2F"_s.arg(spelling), u"..\\"_s),
                  u"%2F<IMG src=\"..\\Shop/a.gif\">%2F"_s)
            << spelling.toStdString();
}

TEST(Roots, OtherPathsStay) {
    const Roots roots(u"/srv/Pondera_Folder"_s);
    expect_unchanged([&](const QString& other) { return roots.replace_websites_root(other, u"../"_s); },
                     {u"C:\\Pondera_Folder\\Pondera Graphic\\a.gif", u"C:\\Pondera_Folder\\PonderaX\\a.gif",
                      u"D:\\Pondera_Folder\\Pondera\\a.gif", u"http://example.org/srv/Pondera_Folder/Pondera/a.gif",
                      u"/home/srv/Pondera_Folder/Pondera/a.gif", u"/SRV/Pondera_Folder/Pondera/a.gif"});
}

TEST(Roots, NothingInAPageHidesThePathsBehindIt) {
    const Roots roots(u"/home/ann/Pondera_Folder"_s);
    const QString link = u"\"file:///home/ann/Pondera_Folder/Pondera/Shop/a\" file: C: /home/"_s;
    for (const QString& awkward : {QString(QChar(0xD83D)), QString(QChar(0xDE00)), u"file:"_s + QString(100'000, u'/'),
                                   u"C:/Pondera_Folder"_s + u"%5C"_s.repeated(50'000), u"😀"_s})
        EXPECT_EQ(roots.replace_websites_root(awkward + link.repeated(12'000), {}).count(u"\"Shop/a\" "_s), 12'000);
}

}  // namespace pondera
