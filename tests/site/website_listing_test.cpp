#include "site/website_listing.h"

#include "base/roots.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(WebsiteListing, WebsitesAreFoldersWithAnEditedHomePage) {
    const TestFolder base;
    const Roots roots(base.path());
    EXPECT_EQ(list_websites(roots), QStringList());
    base.put_all(u"Pondera"_s,
                 u"shop/çindex.htm Art/çindex.htm Half/index.htm çindex.htm Pondera_System/çindex.htm "
                 "FTP_TOTAL/çindex.htm ftp/çindex.htm _HELP/çindex.htm Odd/çindex.htm/x"_s);
    EXPECT_EQ(list_websites(roots), QStringList({u"Art"_s, u"shop"_s}));
}

TEST(WebsiteListing, PagesAreListedByTheirPublishedNames) {
    const TestFolder website;
    website.put_all(u"."_s,
                    u"_4_zoo.htm §_4_zoo.htm _4_Art.htm _4_Cards.htm Shop_card.htm çindex.htm index.htm §_2_Sea.htm "
                    "about.HTML §_1_vuota.htm _1_vuota.htm _§_1_card.htm _çmenu.htm §_elenco.pnd Thumbs.db List.pdf "
                    "Letter.DOC §Letter.doc media/img/page.htm"_s);
    const QString pages = u"index.htm _2_Sea.htm _4_Art.htm _4_Cards.htm _4_zoo.htm about.HTML"_s;
    EXPECT_EQ(list_pages(website.path()).join(u' '), pages);
    ASSERT_TRUE(remove_file(website.path(u"index.htm"_s)));
    EXPECT_EQ(list_pages(website.path()).join(u' '), pages);
    EXPECT_EQ(list_documents(website.path()), QStringList({u"Letter.DOC"_s, u"List.pdf"_s}));
}

}  // namespace pondera
