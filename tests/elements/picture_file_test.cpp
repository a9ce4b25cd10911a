#include "elements/image/picture_file.h"

#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

using namespace Qt::StringLiterals;

TEST(PictureFile, CleanNamesWorkAsLinksEverywhere) {
    expect_results(clean_file_name,
                   {u"Città di  Çatal.JPG → Citta-di-Catal.JPG", u"100% \"best\" #1 <§>.png → 100-best-1.png",
                    u"Straße & Ø.gif → Strasse-O.gif", u"写真.jpg → image.jpg", u".hidden.jpg → hidden.jpg",
                    u"a.b.c.jpeg → a.b.c.jpeg", u"..\\..\\x'.gif → x.gif"});
}

TEST(PictureFile, PicturesComeIntoTheWebsiteWithoutReplacingAnything) {
    const TestFolder folder;
    const auto bring = [&](const QString& file, const QByteArray& bytes) {
        return bring_picture_into_website(folder.put(file, bytes), folder.path(u"Shop"_s)).value_or(u"failed"_s);
    };
    folder.put(u"Shop/media/img/la-mer.jpg"_s, "other");
    EXPECT_EQ(bring(u"Pictures/La mer.jpg"_s, "picture"), u"media/img/La-mer-2.jpg"_s);
    EXPECT_EQ(bring(u"Pictures/La mer.jpg"_s, "picture"), u"media/img/La-mer-2.jpg"_s) << "the same bytes are there";
    EXPECT_EQ(bring(u"More/La mer.jpg"_s, "third"), u"media/img/La-mer-3.jpg"_s);
    EXPECT_EQ(folder.bytes(u"Shop/media/img/la-mer.jpg"_s), "other");
    EXPECT_EQ(folder.bytes(u"Shop/media/img/La-mer-2.jpg"_s), "picture");
    EXPECT_EQ(folder.bytes(u"Shop/media/img/La-mer-3.jpg"_s), "third");

    EXPECT_EQ(bring(u"Shop/own/a.gif"_s, "a"), u"own/a.gif"_s) << "clean already";
    EXPECT_EQ(bring(u"Shop/media/img/fa\u00e7ade.gif"_s, "b"), u"media/img/facade.gif"_s);
    EXPECT_EQ(bring(u"Shop2/b.gif"_s, "c"), u"media/img/b.gif"_s) << "a neighbour is outside";

    EXPECT_EQ(bring_picture_into_website(folder.put(u"a.gif"_s), folder.path(u"Gone"_s)).error().number,
              FaultNumber::kPathNotFound);
    EXPECT_FALSE(bring_picture_into_website(folder.path(u"gone.gif"_s), folder.path(u"Shop"_s)));
}

}  // namespace pondera
