#include "site/website_copy.h"

#include "base/roots.h"
#include "tests/support/folder_text.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

const Roots kRoots(u"/home/me/Pondera_Folder"_s);

static QString home_text(const QString& text) {
    return text_of_copy(u"çindex.htm"_s, text, {u"Café"_s, u"2Bar"_s}, kRoots);
}

TEST(WebsiteCopy, TitlesAndAddressesNameTheNewWebsite) {
    expect_results(home_text,
                   {u"<TITLE>Café - Home Page</TITLE> → <TITLE>2Bar - Home Page</TITLE>",
                    u"<title>index</title><title>MODELLO</title> → "
                    "<title>2Bar - Home Page</title><title>2Bar - Home Page</title>",
                    uR"(<BODY background="..\Café\media\img\a.jpg"> → <BODY background="..\2Bar\media\img\a.jpg">)",
                    u"url(../caf%C3%A9/media/a.jpg) → url(../2Bar/media/a.jpg)",
                    uR"(background=C:\pondera_folder\Pondera\Café\x.jpg → background=../2Bar\x.jpg)",
                    u"file:///home/me/Pondera_Folder/Pondera/Café/x.jpg → ../2Bar/x.jpg"});
    expect_unchanged(home_text,
                     {u"<title>Café</title>", u"../Cafés/a", u"../../Café/a", u"http://x/../Café", u"Café/a"});
    const WebsiteCopy copy{u"Café"_s, u"2Bar"_s};
    const QString model = u"<title>MODELLO</title>"_s;
    EXPECT_EQ(text_of_copy(u"_4_Trips.htm"_s, model, copy, kRoots), u"<title>2Bar</title>");
    for (const QString& file : {u"_§_2_card.htm"_s, u"_çmenu.htm"_s})
        EXPECT_EQ(text_of_copy(file, model, copy, kRoots), model);
}

TEST(WebsiteCopy, HoldsEverythingButThePublishingRecord) {
    const TestFolder base;
    const Roots roots(base.path());
    base.put(u"Pondera/Shop/çindex.htm"_s, "<title>Shop - Home Page</title>\xe0");
    base.put(u"Pondera/Shop/media/img/menu.js"_s, "'../Shop/a.htm'");
    base.put_all(u"Pondera/Shop"_s, u"§_elenco.pnd §_elencotemp.pnd papers/2020/a.pdf media/img/a.jpg"_s, "../Shop/");
    ASSERT_TRUE(QFile::link(base.path(), base.path(u"Pondera/Shop/up"_s)));

    const auto stopped =
        copy_website(roots, {u"Shop"_s, u"Bar"_s}, [](int done, int total) { return done < total - 1; });
    EXPECT_TRUE(stopped.value().cancelled);
    EXPECT_EQ(QDir(roots.websites()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList({u"Shop"_s}));

    EXPECT_EQ(copy_website(roots, {u"Shop"_s, u"Bar"_s}).value().left_out, QStringList({u"up"_s}));
    EXPECT_EQ(text_of_folder(roots.website(u"Bar"_s)),
              u"media/img/a.jpg=../Shop/ media/img/menu.js='../Bar/a.htm' papers/2020/a.pdf=../Shop/ "
              "çindex.htm=<title>Bar - Home Page</title>\uFFFD");
    EXPECT_TRUE(base.bytes(u"Pondera/Bar/çindex.htm"_s).endsWith('\xe0'));
    EXPECT_EQ(copy_website(roots, {u"Shop"_s, u"BAR"_s}).error().number, FaultNumber::kAlreadyExists);
    EXPECT_EQ(copy_website(roots, {u"None"_s, u"New"_s}).error().number, FaultNumber::kPathNotFound);
}

}  // namespace pondera
