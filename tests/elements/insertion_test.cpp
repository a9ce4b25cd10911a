#include "elements/insertion.h"

#include <array>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(Insertion, PictureMarkupFollowsTheTemplate) {
    PictureInsertion picture{.page_text = u"<BODY><IMG style=\"Z-INDEX: 1004; LEFT: 1px\" name=myxphotoxjpg></BODY>"_s,
                             .page_file = u"§_4_Holidays.htm"_s,
                             .picture = u"media/img/my-photo.jpg"_s,
                             .name_source = u"my photo.jpg"_s,
                             .size = {}};
    EXPECT_EQ(picture_markup(picture),
              u"<IMG name=\"myxphotoxjpg2\" style=\"Z-INDEX: 8305; LEFT: 10px; POSITION: absolute; TOP: 10px\" "
              "src=\"media/img/my-photo.jpg\">"_s);

    picture.page_text = u"<BODY></BODY>"_s;
    picture.page_file = u"§_x_Small.htm"_s;
    picture.size = QSize(640, 480);
    EXPECT_EQ(picture_markup(picture),
              u"<IMG name=\"myxphotoxjpg\" style=\"Z-INDEX: 1; LEFT: 0px; POSITION: absolute; TOP: 0px; WIDTH: 640px; "
              "HEIGHT: 480px\" src=\"media/img/my-photo.jpg\">"_s);
}

TEST(Insertion, APopupSizeThatIsOwnInBothIsReset) {
    const std::vector<std::array<QString, 4>> cases{{u"640"_s, u"480"_s, u"800"_s, u"600"_s},
                                                    {u"800"_s, u"480"_s, u"800"_s, u"480"_s},
                                                    {u"640"_s, u"600"_s, u"640"_s, u"600"_s}};
    for (const auto& [width, height, settled_width, settled_height] : cases) {
        PopupSize size{width, height};
        settle_popup_size(size);
        EXPECT_EQ(size.width, settled_width);
        EXPECT_EQ(size.height, settled_height);
    }
}

}  // namespace

}  // namespace pondera
