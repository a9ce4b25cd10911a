#include "site/website_creation.h"

#include <QRegularExpression>

#include "base/roots.h"
#include "site/card_page.h"
#include "site/first_start.h"
#include "site/interface_models.h"
#include "site/website_listing.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A base folder as the first start leaves it, with what the program really ships.
class WebsiteCreation : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(install_shipped_files(QStringLiteral(PONDERA_SOURCE_DIR "/system"), roots_)); }

    [[nodiscard]] QString text_of(const QString& website, const QString& file) const {
        return QString::fromUtf8(base_.bytes(u"Pondera/%1/%2"_s.arg(website, file)));
    }

    TestFolder base_;
    Roots roots_{base_.path()};
};

TEST_F(WebsiteCreation, EveryShippedModelMakesAWebsite) {
    for (const QString& model : list_interface_models(roots_)) {
        ASSERT_EQ(interface_model_cards(roots_, model), QList<int>({1, 2}));
        for (const int card : {1, 2}) {
            const QString name = u"Trial%1%2"_s.arg(model.first(3)).arg(card);
            ASSERT_TRUE(create_website_folder(roots_, name));
            ASSERT_TRUE(fill_website(roots_, {name, model, card}));
            const QDir folder(roots_.website(name));
            EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name).join(u' '),
                      u"_§_1_card.htm _§_2_card.htm _çmenu.htm index.htm media çindex.htm");

            const QString home = text_of(name, u"çindex.htm"_s);
            EXPECT_EQ(home.count(u"<title>%1 - Home Page</title>"_s.arg(name)), 1);
            for (const QString& placeholder : {u"MODELLO"_s, u"Subject..."_s, u"photo-show"_s})
                EXPECT_FALSE(home.contains(placeholder)) << placeholder.toStdString();
            EXPECT_EQ(text_of(name, u"index.htm"_s), home);

            static const QRegularExpression picture(u"media/img/[\\w.-]+"_s);
            for (const QString& file : {u"çindex.htm"_s, u"_§_2_card.htm"_s, u"_çmenu.htm"_s})
                for (const auto& hit : picture.globalMatch(text_of(name, file)))
                    EXPECT_TRUE(folder.exists(hit.captured())) << hit.captured().toStdString();
        }
    }
}

TEST_F(WebsiteCreation, AUsedNameIsRefusedBeforeAnythingIsWritten) {
    ASSERT_TRUE(create_website_folder(roots_, u"Shop"_s));
    for (const QString& name : {u"Shop"_s, u"SHOP"_s})
        EXPECT_EQ(website_creation_message(create_website_folder(roots_, name).error()),
                  u"Name of the Website already used!"_s);
    EXPECT_TRUE(QDir(roots_.website(u"Shop"_s)).isEmpty());

    abandon_website_folder(roots_, u"Shop"_s);
    EXPECT_TRUE(create_website_folder(roots_, u"Shop"_s));
    const QString mine = base_.put(u"Pondera/Shop/mine.txt"_s);
    abandon_website_folder(roots_, u"Shop"_s);
    EXPECT_TRUE(QFileInfo::exists(mine));

    // Without its templates it is no Website.
    EXPECT_EQ(website_creation_message(fill_website(roots_, {u"Shop"_s, u"No_Such_Model"_s, 1}).error()),
              u"Error occurred while creating: code:76"_s);
    EXPECT_FALSE(is_website(roots_.website(u"Shop"_s)));
    EXPECT_EQ(website_creation_message({FaultNumber::kPermissionDenied, {}, {}}),
              u"Read-only disk. Impossible to create the Website!"_s);
}

TEST_F(WebsiteCreation, AModelOfThePersonsOwnBringsOnlyItsPictures) {
    const QString system = u"Pondera/Pondera_System/"_s;
    base_.put_all(system, u"art-10_§_1_card.htm art-1_çMenu.htm old_card.htm _§_1_card.htm"_s);
    base_.put(system + u"art-1_§_2_card.htm"_s,
              "<img src=\"media/img/..%2F..%2Fvuota.htm\"><img src='media\\img\\slide.jpg'>media/img/none.gif");
    EXPECT_EQ(list_interface_models(roots_).join(u' '), u"art-1 art-10 Standard_Interface Store_Interface");
    EXPECT_EQ(interface_model_cards(roots_, u"art-1"_s), QList<int>({2}));

    ASSERT_TRUE(create_website_folder(roots_, u"Shop"_s));
    ASSERT_TRUE(fill_website(roots_, {u"Shop"_s, u"art-1"_s, 2}));
    EXPECT_EQ(QDir(roots_.website(u"Shop"_s) + u"/media/img"_s).entryList(QDir::Files), QStringList({u"slide.jpg"_s}));
}

TEST(CardPage, PhotoShowBlocksStayOnlyInPhotoShows) {
    const QString card =
        u"<TITLE>MODELLO</TITLE><!-- photo-show --><script>1</script><!-- /photo-show --><h1>Subject...</h1>"
        u"<!-- photo-show --><img><!-- /Photo-show --><!-- photo-show -->"_s;
    EXPECT_EQ(page_from_card(card, {.title = u"<Sea"_s, .heading = u"Sea & sun"_s}),
              u"<title>&lt;Sea</title><h1>Sea &amp; sun</h1><!-- photo-show -->"_s);
    EXPECT_EQ(page_from_card(card, {.title = u"Sea"_s, .heading = u"The sea"_s, .photo_show = true}),
              u"<title>Sea</title><script>1</script><h1>The sea</h1><img>"_s);
}

}  // namespace pondera
