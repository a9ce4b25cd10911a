#include "site/website_files.h"

#include "site/file_usage.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(WebsiteFiles, OnlyAWebsitesOwnFilesMayBeDeleted) {
    const TestFolder folder;
    folder.put_all(
        u"Shop"_s,
        u"media/img/Print.GIF media/img/a.gif media/img/sub/x.htm price.pdf index.htm çindex.htm _4_Trips.htm "
        "§_4_Trips.htm _§_1_card.htm _çmenu.htm _1_vuota.htm §_elenco.pnd ../Shop2/a.gif ../secret.gif"_s);
    ASSERT_TRUE(QFile::link(folder.path(u"secret.gif"_s), folder.path(u"Shop/media/img/out.gif"_s)));
    ASSERT_TRUE(QFile::link(folder.path(u"Shop/index.htm"_s), folder.path(u"Shop/media/img/home.gif"_s)));
    ASSERT_TRUE(QFile::link(folder.path(u"Shop"_s), folder.path(u"Link"_s)));
    expect_results(
        [&](const QString& file) {
            return refusal_of_file_deletion(folder.path(file), folder.path(u"Shop"_s)).value_or(u"may go"_s);
        },
        {u"Shop/media/img/a.gif | Link/media/../media/img/a.gif | Shop/price.pdf | Shop/media/img/sub/x.htm → may go",
         u"Shop/media/img/Print.GIF | Shop/_§_1_card.htm | Shop/_çmenu.htm → You cannot cancel a system file.",
         u"Shop/_1_vuota.htm | Shop/§_elenco.pnd → You cannot cancel a system file.",
         u"Shop/../Shop2/a.gif | secret.gif | Shop/media/img/out.gif → Select an image of the current Website.",
         u"Shop/index.htm | Shop/media/img/home.gif → \"HOME PAGE\" is a page of the Website. Delete it with Delete "
         u"Page.",
         u"Shop/§_4_Trips.htm → \"Trips\" is a page of the Website. Delete it with Delete Page."});
    EXPECT_EQ(deletable_files(folder.path(u"Shop"_s), {}).join(u' '),
              u"media/img/a.gif media/img/sub/x.htm price.pdf"_s);
    EXPECT_EQ(deletable_files(folder.path(u"Shop"_s), u"media/img"_s).join(u' '), u"media/img/a.gif"_s);
}

TEST(FileUsage, FilesAreUsedByPagesTemplatesScriptsAndStyles) {
    const TestFolder folder;
    folder.put(u"Shop/index.htm"_s, "<img src='media/img/old.gif'><img src=MEDIA/IMG/Twice.gif>");
    folder.put(u"Shop/çindex.htm"_s, "<img src='../shop/media/img/new.gif'><img src=media/img/twice.gif>");
    folder.put(u"Shop/_§_1_card.htm"_s, "<body background='media/img/back.gif'>");
    folder.put(u"Shop/_4_Menu.htm"_s, "<script>show('roll.gif')</script><a href='Price%20list.pdf'>");
    folder.put(u"Shop/media/img/menu.js"_s, "i = 'mark.gif'; j = 'media/img/flag.gif'");
    folder.put(u"Shop/media/img/look.css"_s, "b { background: url(dot.gif) } i { background: url('../video/v.gif') }");
    folder.put(u"Shop/media/img/External_HTML_Menu.txt"_s, "x");
    folder.put(u"Shop/media/img/External_HTML_Gone.txt"_s, "x");
    FileUsage usage = FileUsage::of_website(folder.path(u"Shop"_s));
    usage.add_page(u"_4_Trips.htm"_s, u"<img src=media/img/unsaved.gif>"_s, u"Shop"_s);
    expect_results(
        [&](const QString& file) { return usage.users_of(file).join(u'+'); },
        {u"media/img/old.gif | media/img/new.gif | media/img/twice.gif → HOME PAGE",
         u"media/img/back.gif → page template", u"media/img/unsaved.gif → Trips",
         u"media/img/roll.gif | Price list.pdf | media/img/External_HTML_Menu.txt → Menu",
         u"media/img/mark.gif | media/img/flag.gif → menu.js", u"media/img/dot.gif | media/video/v.gif → look.css",
         u"media/img/External_HTML_Gone.txt | media/img/none.gif → "});
    EXPECT_TRUE(usage.complete());
    EXPECT_FALSE(FileUsage::of_website(folder.path(u"Shop"_s), [](int done, int) { return done < 2; }).complete());
}

}  // namespace pondera
