#include "site/saved_models.h"

#include "base/roots.h"
#include "site/first_start.h"
#include "site/interface_models.h"
#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// The models that the program ships with, and a Website "Shop" whose cards show pictures of its own.
class SavedModels : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(install_shipped_files(QStringLiteral(PONDERA_SOURCE_DIR "/system"), roots_));
        const QString shop = u"Pondera/Shop/"_s;
        base_.put(shop + u"_§_1_card.htm"_s,
                  "<img src=\"media/img/slide.jpg\"><img src='media\\img\\my%20sea.jpg'>media/img/none.gif \xe0");
        base_.put(shop + u"_çmenu.htm"_s, "url(media/img/slide.jpg) MODELLO");
        base_.put(shop + u"media/img/slide.jpg"_s, "another slide");
        base_.put(shop + u"media/img/my sea.jpg"_s, "sea");
    }

    [[nodiscard]] bool save(const QString& name) const {
        return save_interface_model(roots_, {roots_.website(u"Shop"_s), name}).has_value();
    }
    [[nodiscard]] QByteArray system(const QString& file) const {
        return base_.bytes(u"Pondera/Pondera_System/"_s + file);
    }

    TestFolder base_;
    Roots roots_{base_.path()};
};

TEST_F(SavedModels, AModelBringsItsPictures) {
    const QByteArray slide = system(u"media/img/slide.jpg"_s);
    ASSERT_TRUE(save(u"Mine"_s));
    EXPECT_EQ(list_own_interface_models(roots_), QStringList({u"Mine"_s}));
    EXPECT_EQ(system(u"Mine_§_1_card.htm"_s),
              "<img src=\"media/img/slide-2.jpg\"><img src='media\\img\\my-sea.jpg'>media/img/none.gif \xe0");
    EXPECT_EQ(system(u"Mine_çMenu.htm"_s), "url(media/img/slide-2.jpg) MODELLO");
    EXPECT_EQ(system(u"media/img/slide.jpg"_s), slide);
    EXPECT_EQ(system(u"media/img/slide-2.jpg"_s), "another slide");
    EXPECT_EQ(system(u"media/img/my-sea.jpg"_s), "sea");
}

TEST_F(SavedModels, ReplacingAndDeletingTakesAllOfOneModelOnly) {
    base_.put(u"Pondera/Shop/_§_2_card.htm"_s, "two");
    for (const QString& name : {u"Mine"_s, u"Mine2"_s}) {
        ASSERT_TRUE(save(name));
        base_.put(u"Pondera/Pondera_System/preview/%1_card2.png"_s.arg(name));
    }
    ASSERT_TRUE(QFile::remove(base_.path(u"Pondera/Shop/_§_2_card.htm"_s)));
    EXPECT_EQ(model_in_use(roots_, u"mINE"_s), u"Mine");
    ASSERT_TRUE(save(u"Mine"_s));
    EXPECT_EQ(interface_model_cards(roots_, u"Mine"_s), QList<int>({1}));
    EXPECT_FALSE(QFileInfo::exists(interface_model_preview(roots_, u"Mine"_s, 2)));

    ASSERT_TRUE(delete_interface_model(roots_, u"Mine"_s));
    EXPECT_FALSE(text_of_folder(roots_.system_folder()).contains(u"Mine_"_s));
    EXPECT_EQ(interface_model_cards(roots_, u"Mine2"_s), QList<int>({1, 2}));
    EXPECT_TRUE(QFileInfo::exists(interface_model_preview(roots_, u"Mine2"_s, 2)));
}

}  // namespace pondera
