#include "site/website_listing.h"

#include "base/roots.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(WebsiteListing, WebsitesAreFoldersWithAnEditedHomePage) {
    const TestFolder base;
    const Roots roots(base.path());
    EXPECT_EQ(list_websites(roots), QStringList());
    for (const QString& file : {u"shop/çindex.htm"_s, u"Art/çindex.htm"_s, u"Half/index.htm"_s, u"çindex.htm"_s,
                                u"Pondera_System/çindex.htm"_s, u"FTP_TOTAL/çindex.htm"_s, u"ftp/çindex.htm"_s,
                                u"_HELP/çindex.htm"_s, u"Odd/çindex.htm/x"_s})
        base.put(u"Pondera/"_s + file);
    EXPECT_EQ(list_websites(roots), QStringList({u"Art"_s, u"shop"_s}));
}

TEST(WebsiteListing, PagesAreListedByTheirPublishedNames) {
    const TestFolder website;
    for (
        const QString& file :
        u"_4_zoo.htm §_4_zoo.htm _4_Art.htm _4_Cards.htm Shop_card.htm çindex.htm index.htm §_2_Sea.htm about.HTML §_1_vuota.htm _1_vuota.htm _§_1_card.htm _çmenu.htm §_elenco.pnd Thumbs.db List.pdf Letter.DOC §Letter.doc media/img/page.htm"_s
            .split(u' '))
        website.put(file);
    const QStringList pages{u"index.htm"_s,    u"_2_Sea.htm"_s, u"_4_Art.htm"_s,
                            u"_4_Cards.htm"_s, u"_4_zoo.htm"_s, u"about.HTML"_s};
    EXPECT_EQ(list_pages(website.path()), pages);
    ASSERT_TRUE(remove_file(website.path(u"index.htm"_s)));
    EXPECT_EQ(list_pages(website.path()), pages);
    EXPECT_EQ(list_documents(website.path()), QStringList({u"Letter.DOC"_s, u"List.pdf"_s}));
}

}  // namespace pondera
