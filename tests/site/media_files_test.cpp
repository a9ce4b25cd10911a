#include "site/media_files.h"

#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(MediaFiles, CleanNamesWorkAsLinksEverywhere) {
    expect_results([](const QString& name) { return clean_file_name(name); },
                   {u"Città di  Çatal.JPG → Citta-di-Catal.JPG", u"100% \"best\" #1 <§>.png → 100-best-1.png",
                    u"Straße & Ø.gif → Strasse-O.gif", u"写真.jpg → image.jpg", u".hidden.jpg → hidden.jpg",
                    u"a.b.c.jpeg → a.b.c.jpeg", u"..\\..\\x'.gif → x.gif"});
}

TEST(MediaFiles, PicturesComeIntoTheWebsiteWithoutReplacingAnything) {
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
    EXPECT_FALSE(bring_picture_into_website(folder.path(u"Pictures"_s), folder.path(u"Shop"_s))) << "a folder";
}

TEST(MediaFiles, DocumentsBesideThePagesAreNeverNamedLikePages) {
    const TestFolder folder;
    folder.put(u"Shop/\u00e7index.htm"_s);
    folder.put(u"Shop/_4_Trips.htm"_s, "a page");
    expect_results(
        [&](const QString& name) {
            const QString file = folder.put(u"Documents/"_s + name, name.toUtf8());
            return bring_file_into_website(file, folder.path(u"Shop"_s), {}).value_or(u"failed"_s);
        },
        {u"Price list.pdf → Price-list.pdf", u"Index.HTM → Index-2.HTM", u"index.html → index-2.html",
         u"_4_Trips.htm → 4_Trips.htm", u"§_4_Trips.htm → 4_Trips-2.htm", u"___.pdf → document.pdf",
         u"写真.doc → document.doc"});
    EXPECT_EQ(folder.bytes(u"Shop/_4_Trips.htm"_s), "a page");

    const QString film = folder.put(u"Films/写真.mp4"_s, "film");
    EXPECT_EQ(bring_file_into_website(film, folder.path(u"Shop"_s), u"media/video"_s), u"media/video/video.mp4"_s);
}

}  // namespace pondera
