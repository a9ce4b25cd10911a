#include "elements/image/picture_file.h"

#include <QDir>

#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(PictureFile, CleanNamesWorkAsLinksEverywhere) {
    const std::vector<std::pair<QString, QString>> cases{{u"Città di  Çatal.JPG"_s, u"Citta-di-Catal.JPG"_s},
                                                         {u"100% \"best\" #1 <§>.png"_s, u"100-best-1.png"_s},
                                                         {u"Straße & Ø.gif"_s, u"Strasse-O.gif"_s},
                                                         {u"写真.jpg"_s, u"image.jpg"_s},
                                                         {u".hidden.jpg"_s, u"hidden.jpg"_s},
                                                         {u"a.b.c.jpeg"_s, u"a.b.c.jpeg"_s},
                                                         {u"..\\..\\x'.gif"_s, u"x.gif"_s}};
    for (const auto& [name, clean] : cases) EXPECT_EQ(clean_file_name(name), clean);
}

class PictureIntoWebsite : public testing::Test {
  protected:
    QString write(const QString& path, const QByteArray& bytes) {
        const QString full = dir_.filePath(path);
        QDir().mkpath(QFileInfo(full).path());
        EXPECT_TRUE(write_file(full, bytes));
        return full;
    }
    QString bring(const QString& picture) {
        return bring_picture_into_website(picture, dir_.filePath(u"Shop"_s)).value_or(u"failed"_s);
    }
    QByteArray bytes(const QString& path) { return read_file(dir_.filePath(u"Shop/"_s + path)).value_or("missing"); }

    QTemporaryDir dir_;
};

TEST_F(PictureIntoWebsite, NeverTakesThePlaceOfAnotherFile) {
    write(u"Shop/media/img/la-mer.jpg"_s, "other");
    const QString outside = write(u"Pictures/La mer.jpg"_s, "picture");
    EXPECT_EQ(bring(outside), u"media/img/La-mer-2.jpg"_s);
    EXPECT_EQ(bring(outside), u"media/img/La-mer-2.jpg"_s) << "the same bytes are there";
    EXPECT_EQ(bring(write(u"More/La mer.jpg"_s, "third")), u"media/img/La-mer-3.jpg"_s);
    EXPECT_EQ(bytes(u"media/img/la-mer.jpg"_s), "other");
    EXPECT_EQ(bytes(u"media/img/La-mer-2.jpg"_s), "picture");
    EXPECT_EQ(bytes(u"media/img/La-mer-3.jpg"_s), "third");
}

TEST_F(PictureIntoWebsite, APictureOfTheWebsiteStaysWhenItsPathIsClean) {
    EXPECT_EQ(bring(write(u"Shop/own/a.gif"_s, "a")), u"own/a.gif"_s);
    EXPECT_EQ(bring(write(u"Shop/media/img/fa\u00e7ade.gif"_s, "b")), u"media/img/facade.gif"_s);
    EXPECT_EQ(bring(write(u"Shop2/b.gif"_s, "c")), u"media/img/b.gif"_s) << "a neighbour is outside";
}

TEST_F(PictureIntoWebsite, ReportsWhatIsMissing) {
    EXPECT_EQ(bring_picture_into_website(write(u"a.gif"_s, "a"), dir_.filePath(u"Gone"_s)).error().number,
              FaultNumber::kPathNotFound);
    write(u"Shop/index.htm"_s, "x");
    EXPECT_FALSE(bring_picture_into_website(dir_.filePath(u"gone.gif"_s), dir_.filePath(u"Shop"_s)));
}

}  // namespace

}  // namespace pondera
