#include "site/website_listing.h"

#include <QDir>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"
#include "site/interface_models.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

void put(const QString& folder, const QStringList& files) {
    for (const QString& file : files) {
        const QString path = QDir(folder).filePath(file);
        ASSERT_TRUE(create_folders(QFileInfo(path).path()));
        ASSERT_TRUE(write_file(path, "x"));
    }
}

TEST(WebsiteListing, WebsitesAreFoldersWithAnEditedHomePage) {
    const QTemporaryDir base;
    const Roots roots(base.path());
    EXPECT_EQ(list_websites(roots), QStringList());
    put(roots.websites(), {u"shop/çindex.htm"_s, u"Art/çindex.htm"_s, u"Half/index.htm"_s,
                           u"Pondera_System/çindex.htm"_s, u"FTP_TOTAL/çindex.htm"_s, u"ftp/çindex.htm"_s,
                           u"_HELP/çindex.htm"_s, u"çindex.htm"_s, u"Odd/çindex.htm/x"_s});
    EXPECT_EQ(list_websites(roots), QStringList({u"Art"_s, u"shop"_s}));
}

TEST(WebsiteListing, PagesAreListedByTheirPublishedNames) {
    const QTemporaryDir base;
    put(base.path(),
        {u"_4_zoo.htm"_s, u"§_4_zoo.htm"_s, u"_4_Art.htm"_s, u"çindex.htm"_s, u"index.htm"_s, u"§_2_Sea.htm"_s,
         u"about.HTML"_s, u"§_1_vuota.htm"_s, u"_1_vuota.htm"_s, u"_§_1_card.htm"_s, u"_çmenu.htm"_s, u"§_elenco.pnd"_s,
         u"Thumbs.db"_s, u"List.pdf"_s, u"Letter.DOC"_s, u"media/img/page.htm"_s});
    EXPECT_EQ(list_pages(base.path()),
              QStringList({u"index.htm"_s, u"_2_Sea.htm"_s, u"_4_Art.htm"_s, u"_4_zoo.htm"_s, u"about.HTML"_s}));
    ASSERT_TRUE(remove_file(base.filePath(u"index.htm"_s)));
    EXPECT_EQ(list_pages(base.path()).first(), u"index.htm"_s);
    EXPECT_EQ(list_documents(base.path()), QStringList({u"Letter.DOC"_s, u"List.pdf"_s}));
}

TEST(InterfaceModels, EachIsListedOnceWithItsCards) {
    const QTemporaryDir base;
    const Roots roots(base.path());
    put(roots.system_folder(),
        {u"Store_§_2_card.htm"_s, u"Store_§_1_card.htm"_s, u"Store_çMenu.htm"_s, u"art-1_§_2_card.htm"_s,
         u"art-10_§_1_card.htm"_s, u"old_card.htm"_s, u"_§_1_card.htm"_s, u"vuota.htm"_s});
    EXPECT_EQ(list_interface_models(roots), QStringList({u"art-1"_s, u"art-10"_s, u"Store"_s}));
    EXPECT_EQ(interface_model_cards(roots, u"Store"_s), QList<int>({1, 2}));
    EXPECT_EQ(interface_model_cards(roots, u"art-1"_s), QList<int>({2}));
}

}  // namespace

}  // namespace pondera
