#include "elements/image_size.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const ImageTraits kImage{.position = {10, 20}, .level = u"83"_s, .name = u"axjpg"_s};

QString image(const QString& name, const QString& style) {
    return u"<IMG style=\"%2\" name=%1 src=\"a\">"_s.arg(name, style);
}

TEST(ImageSize, OnlyTheImageMeantIsResized) {
    const QString place = u"Z-INDEX: 83; LEFT: 10px; WIDTH: 5px; TOP: 20px; HEIGHT: 6px"_s;
    const QString grown = u"Z-INDEX: 83; LEFT: 10px; WIDTH: 50px; TOP: 20px; HEIGHT: 60px"_s;
    const QString near = u"Z-INDEX: 830; LEFT: 100px; WIDTH: 5px; TOP: 20px; HEIGHT: 6px"_s;
    EXPECT_EQ(page_with_image_size(image(u"b"_s, place) + image(u"axjpg"_s, place) + image(u"axjpg"_s, near), kImage,
                                   {50, 60}),
              image(u"b"_s, place) + image(u"axjpg"_s, grown) + image(u"axjpg"_s, near))
        << "same geometry, another name";
    EXPECT_EQ(page_with_image_size(image(u"renamed"_s, place), kImage, {50, 60}), image(u"renamed"_s, grown));
    EXPECT_EQ(page_with_image_size(image(u"axjpg"_s, near), kImage, {50, 60}), std::nullopt) << "scores two";
    EXPECT_EQ(
        page_with_image_size(image(u"b"_s, QString(place).replace(u"LEFT"_s, u"MARGIN-LEFT"_s)), kImage, {50, 60}),
        std::nullopt)
        << "a margin is no position";
    EXPECT_EQ(page_with_image_size(image(u"b"_s, place) + image(u"c"_s, place), kImage, {50, 60}), std::nullopt)
        << "the text does not tell which";
}

TEST(ImageSize, SizeIsWrittenInTheFormThatTheTagUses) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<IMG style=\"left: 10; width: 5\" height=6 src=\"a\">"_s,
         u"<IMG style=\"left: 10; width: 50px\" height=60 src=\"a\">"_s},
        {u"<IMG height=\"6\" width=\"5px\">"_s, u"<IMG height=\"60\" width=\"50\">"_s},
        {u"<IMG style=\"WIDTH: 5px; HEIGHT: 6px\" width=5 height=6>"_s,
         u"<IMG style=\"WIDTH: 50px; HEIGHT: 60px\" width=50 height=60>"_s},
        {u"<IMG src=media/>"_s, u"<IMG style=\"WIDTH: 50px; HEIGHT: 60px\" src=media/>"_s},
        {u"<IMG style=font:\"A\" src=a"_s, u"<IMG style=\"font: &quot;A&quot;; WIDTH: 50px; HEIGHT: 60px\" src=a"_s},
    };
    for (const auto& [tag, resized] : cases) EXPECT_EQ(image_with_size(tag, {50, 60}), resized);
}

TEST(ImageSize, FieldsTakeWholeNumbersFrom1To30000) {
    for (const QString& accepted : {u"1"_s, u"30000"_s, u" 7 "_s})
        EXPECT_TRUE(parse_image_length(accepted)) << accepted.toStdString();
    for (const QString& refused : {u""_s, u"0"_s, u"30001"_s, u"-5"_s, u"2.5"_s, u"ten"_s})
        EXPECT_FALSE(parse_image_length(refused)) << refused.toStdString();
}

}  // namespace

}  // namespace pondera
