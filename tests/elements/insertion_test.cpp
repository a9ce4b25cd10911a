#include "elements/insertion.h"

#include "elements/element_name.h"
#include "elements/stacking_level.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(StackingLevel, NextFreeLevelIsHighestPlusOne) {
    expect_results(
        FzIndex,
        {u"<P>no levels at all</P> → 1", u"style=\"z-index: 5; left: 1\" style=\"Z-INDEX: 901; LEFT: 1px\" → 902",
         u"style=\"Z-index: 7; x\" style=\"z-Index: 40; x\" → 41", u"style=\"Z-INDEX: 12345; LEFT: 1px\" → 1235",
         u"style=\"Z-INDEX: 830\" name=a> style=\"Z-INDEX: 12; x\" → 13",  // a quote follows too soon
         u"style=\"Z-INDEX:900; LEFT: 1px\" style=\"Z-INDEX: 3; x\" → 4",  // no blank, no level
         u"style=\"Z-INDEX: auto; x\" style=\"Z-INDEX: 20; x\" → 21",
         u"style=\"Z-INDEX: -5; x\" style=\"Z-INDEX: -9; x\" → -4",
         u"style=\"Z-INDEX: 0; x\" style=\"Z-INDEX: -9; x\" → -8",  // 0 gives way without comparison
         u"style=\"Z-INDEX: 9 → 10"});
}

TEST(ElementName, IsMadeFromTheFileNameAndFreeOnThePage) {
    expect_results(element_name, {u"a_b!c,d?e;f:g*h/i+j\r\nk - l → axbxcxdxexfxgxhxixjxxkxxxl",
                                  u"mystyle STYLE.gif → mystilexSTILExgif"});
    const QString page =
        u"<IMG name=axjpg src=\"a.jpg\"><IMG src=\"b.jpg\" name=\"marchio\"><DIV name=marchio2>name=bxjpg</DIV>"_s;
    expect_results([&](const QString& file) { return free_element_name(file, page); },
                   {u"a.jpg → axjpg2", u"marchio → marchio3", u"b.jpg → bxjpg", u"axjp → axjp",
                    u"\"<fa\u00e7ade>\\.gif → faadexgif", u" → image"});
}

TEST(ElementName, APictureIsNeverTakenForAnElementOfTheProgram) {
    for (const QString& file : {u"S1000123.JPG"_s, u"parco.jpg"_s, u"mr.jpg"_s}) {
        const QString tag = u"<IMG name=%1 src=\"a\">"_s.arg(free_element_name(file, {}));
        EXPECT_FALSE(is_media_placeholder(tag) || has_reserved_name(tag)) << tag.toStdString();
    }
    EXPECT_TRUE(is_media_placeholder(u"<IMG data-name=q src=\"a\" name=S110>"));
    EXPECT_FALSE(is_media_placeholder(u"<IMG alt=\"name=S100\" name=Sandra>"));
}

TEST(Insertion, PictureMarkupFollowsTheTemplate) {
    const auto markup = [](const QString& text, const QString& file, QSize size) {
        return picture_markup({text, file, u"media/img/my-photo.jpg"_s, u"my photo.jpg"_s, size});
    };
    EXPECT_EQ(markup(u"<IMG style=\"Z-INDEX: 1004; LEFT: 1px\" name=myxphotoxjpg>"_s, u"§_4_Holidays.htm"_s, {}),
              u"<IMG name=\"myxphotoxjpg2\" style=\"Z-INDEX: 8305; LEFT: 10px; POSITION: absolute; TOP: 10px\" "
              "src=\"media/img/my-photo.jpg\">"_s);
    EXPECT_EQ(markup(u"<BODY></BODY>"_s, u"§_x_Small.htm"_s, QSize(640, 480)),
              u"<IMG name=\"myxphotoxjpg\" style=\"Z-INDEX: 1; LEFT: 0px; POSITION: absolute; TOP: 0px; WIDTH: 640px; "
              "HEIGHT: 480px\" src=\"media/img/my-photo.jpg\">"_s);
}

TEST(Insertion, APopupSizeThatIsOwnInBothIsReset) {
    expect_results(
        [](const QString& own) {
            PopupSize size{own.section(u' ', 0, 0), own.section(u' ', 1)};
            settle_popup_size(size);
            return size.width + u' ' + size.height;
        },
        {u"640 480 → 800 600", u"800 480 → 800 480", u"640 600 → 640 600"});
}

}  // namespace pondera
