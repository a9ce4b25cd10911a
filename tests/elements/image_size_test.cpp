#include "elements/image_size.h"

#include "tests/support/tables.h"

namespace pondera {

TEST(ImageSize, OnlyTheImageMeantIsResized) {
    const auto image = [](const QString& name, const QString& place, const QString& size = u"5px; HEIGHT: 6px"_s) {
        return u"<IMG style=\"%2; TOP: 20px; WIDTH: %3\" name=%1 src=\"a\">"_s.arg(name, place, size);
    };
    const auto resized = [](const QString& page) {
        return page_with_image_size(page, {.position = {10, 20}, .level = u"83"_s, .name = u"axjpg"_s}, {50, 60});
    };
    const QString here = u"Z-INDEX: 83; LEFT: 10px"_s;
    const QString near = u"Z-INDEX: 830; LEFT: 100px"_s;
    const QString grown = u"50px; HEIGHT: 60px"_s;
    EXPECT_EQ(resized(image(u"b"_s, here) + image(u"axjpg"_s, here) + image(u"axjpg"_s, near)),
              image(u"b"_s, here) + image(u"axjpg"_s, here, grown) + image(u"axjpg"_s, near));
    EXPECT_EQ(resized(image(u"renamed"_s, here)), image(u"renamed"_s, here, grown));
    EXPECT_EQ(resized(image(u"axjpg"_s, near)), std::nullopt) << "scores two";
    EXPECT_EQ(resized(image(u"b"_s, u"Z-INDEX: 83; MARGIN-LEFT: 10px"_s)), std::nullopt) << "a margin is no position";
    EXPECT_EQ(resized(image(u"b"_s, here) + image(u"c"_s, here)), std::nullopt) << "the text does not tell which";
}

TEST(ImageSize, SizeIsWrittenInTheFormThatTheTagUses) {
    expect_results(
        [](const QString& tag) {
            return image_with_size(tag, {50, 60});
        },
        {u"<IMG style=\"left: 10; width: 5\" height=6 src=\"a\">"
         u" → <IMG style=\"left: 10; width: 50px\" height=60 src=\"a\">",
         u"<IMG height=\"6\" width=\"5px\"> → <IMG height=\"60\" width=\"50\">",
         u"<IMG style=\"WIDTH: 5px; HEIGHT: 6px\" width=5 height=6>"
         u" → <IMG style=\"WIDTH: 50px; HEIGHT: 60px\" width=50 height=60>",
         u"<IMG src=media/> → <IMG style=\"WIDTH: 50px; HEIGHT: 60px\" src=media/>",
         u"<IMG style=font:\"A\" src=a → <IMG style=\"font: &quot;A&quot;; WIDTH: 50px; HEIGHT: 60px\" src=a"});
}

}  // namespace pondera
