#include "elements/element_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(ElementName, IsMadeFromTheFileName) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"my photo-1.jpg"_s, u"myxphotox1xjpg"_s},
        {u"a_b!c,d?e;f:g*h/i+j\r\nk"_s, u"axbxcxdxexfxgxhxixjxxk"_s},
        {u"mystyle STYLE.gif"_s, u"mystilexSTILExgif"_s},
    };
    for (const auto& [file, name] : cases) EXPECT_EQ(element_name(file), name);
}

TEST(ElementName, NewElementsGetANameThatThePageHasNot) {
    const QString page =
        u"<IMG name=axjpg src=\"a.jpg\"><IMG src=\"b.jpg\" name=\"marchio\"><DIV name=marchio2>name=bxjpg</DIV>"_s;
    EXPECT_EQ(free_element_name(u"a.jpg"_s, page), u"axjpg2"_s);
    EXPECT_EQ(free_element_name(u"marchio"_s, page), u"marchio3"_s);
    EXPECT_EQ(free_element_name(u"b.jpg"_s, page), u"bxjpg"_s);
    EXPECT_EQ(free_element_name(u"axjp"_s, page), u"axjp"_s);
    EXPECT_EQ(free_element_name(u"\"<fa\u00e7ade>\\.gif"_s, page), u"faadexgif"_s);
    EXPECT_EQ(free_element_name({}, page), u"image"_s);
}

TEST(ElementName, APictureIsNeverTakenForAnElementOfTheProgram) {
    for (const QString& file : {u"S1000123.JPG"_s, u"parco.jpg"_s, u"mr.jpg"_s}) {
        const QString tag = u"<IMG name=%1 src=\"a\">"_s.arg(free_element_name(file, {}));
        EXPECT_FALSE(is_media_placeholder(tag) || has_reserved_name(tag)) << tag.toStdString();
    }
    EXPECT_TRUE(is_media_placeholder(u"<IMG data-name=q src=\"a\" name=S110>"));
    EXPECT_FALSE(is_media_placeholder(u"<IMG alt=\"name=S100\" name=Sandra>"));
}

}  // namespace

}  // namespace pondera
