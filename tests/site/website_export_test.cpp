#include "site/website_export.h"

#include <QRandomGenerator>

#include "base/roots.h"
#include "site/published_files.h"
#include "tests/support/folder_text.h"
#include "tests/support/small_disk.h"
#include "tests/support/test_folder.h"

namespace pondera {

class WebsiteExporting : public testing::Test {
  protected:
    void SetUp() override {
        base_.put_all(u"Pondera/Shop"_s,
                      u"çindex.htm index.htm §_4_Città.htm _4_Città.htm §_4_New.htm _1_vuota.htm _§_1_card.htm "
                      "_çmenu.htm old_card.htm §_elenco.pnd Thumbs.db price.pdf media/img/sea.jpg "
                      "media/img/THUMBS.DB media/video/a.mp4 papers/a.pdf"_s);
    }

    [[nodiscard]] WebsiteExport plan(ExportForm form, const QString& chosen) const {
        return plan_export(roots_, u"Shop"_s, form, chosen).value();
    }

    const QString published_ =
        u"Shop/_1_vuota.htm=x Shop/_4_Città.htm=x Shop/index.htm=x Shop/media/img/sea.jpg=x "
        "Shop/media/video/a.mp4=x Shop/price.pdf=x"_s;
    TestFolder base_;
    TestFolder out_;
    Roots roots_{base_.path()};
};

TEST_F(WebsiteExporting, AFolderGetsThePublishedFilesAndKeepsItsOwn) {
    const WebsiteExport to = plan(ExportForm::kFolder, out_.path());
    EXPECT_EQ(question_of_export(to), u"");
    EXPECT_EQ(unpublished_pages(roots_.website(u"Shop"_s)), QStringList({u"_4_New.htm"_s}));
    EXPECT_EQ(export_website(roots_, to, [](int done, int) { return done < 3; }).value(), Work::kCancelled);
    EXPECT_TRUE(QDir(out_.path()).isEmpty());
    EXPECT_EQ(export_website(roots_, to).value(), Work::kDone);
    EXPECT_EQ(text_of_folder(out_.path()), published_);

    out_.put(u"Shop/mine.txt"_s, "mine");
    out_.put(u"Shop/index.htm"_s, "older");
    EXPECT_TRUE(question_of_export(to).contains(u"is not empty"_s));
    EXPECT_EQ(export_website(roots_, to, [](int done, int) { return done < 3; }).value(), Work::kCancelled);
    EXPECT_EQ(out_.bytes(u"Shop/mine.txt"_s), "mine");
    EXPECT_EQ(export_website(roots_, to).value(), Work::kDone);
    EXPECT_EQ(out_.bytes(u"Shop/index.htm"_s) + out_.bytes(u"Shop/mine.txt"_s), "xmine");
}

TEST_F(WebsiteExporting, AZipHoldsThePublishedFilesOrStaysAsItWas) {
    const WebsiteExport to = plan(ExportForm::kZip, out_.path(u"shop"_s));
    EXPECT_EQ(to.place, out_.path(u"shop.zip"_s));
    EXPECT_EQ(export_website(roots_, to).value(), Work::kDone);
    const QByteArray archive = out_.bytes(u"shop.zip"_s);
    EXPECT_EQ(archive.count("PK\1\2"), published_.count(u'='));
    for (const QString& file : published_.split(u"=x"_s, Qt::SkipEmptyParts))
        EXPECT_EQ(archive.count(file.trimmed().toUtf8()), 2) << file.toStdString();

    out_.put(u"shop.zip"_s, "old");
    EXPECT_TRUE(question_of_export(to).contains(u"Do you want to replace it?"_s));
    EXPECT_EQ(export_website(roots_, to, [](int done, int) { return done < 3; }).value(), Work::kCancelled);
    ASSERT_TRUE(QFile::setPermissions(out_.path(u"shop.zip"_s), QFile::ReadOwner));
    EXPECT_EQ(export_website(roots_, to).error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(text_of_folder(out_.path()), u"shop.zip=old");

    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "mounting a small disk needs root";
    QByteArray noise(2 << 20, '\0');
    QRandomGenerator(7).generate(noise.begin(), noise.end());
    base_.put(u"Pondera/Shop/media/video/z.mp4"_s, noise);
    for (const ExportForm form : {ExportForm::kZip, ExportForm::kFolder}) {
        const auto full = export_website(roots_, plan(form, disk.file(form == ExportForm::kZip ? u"a.zip"_s : u""_s)));
        EXPECT_EQ(full.error().number, FaultNumber::kDiskFull);
        EXPECT_TRUE(QDir(disk.file({})).isEmpty());
    }
}

TEST_F(WebsiteExporting, PlacesAmongTheWebsitesAreRefused) {
    const QString among = u"Choose a place outside of the folder of your Websites."_s;
    ASSERT_TRUE(QFile::link(roots_.website(u"Shop"_s), out_.path(u"link"_s)));
    out_.put(u"file/Shop"_s);
    const auto refusal = [this](ExportForm form, const QString& chosen, const QString& website = u"Shop"_s) {
        const auto plan = plan_export(roots_, website, form, chosen);
        return plan ? u"(none)"_s : plan.error();
    };
    using enum ExportForm;
    for (const QString& chosen :
         {roots_.websites(), roots_.website(u"Shop/media"_s), out_.path(u"link"_s), out_.path(u"link/../link/media"_s)})
        EXPECT_EQ(refusal(kFolder, chosen), among) << chosen.toStdString();
    EXPECT_EQ(refusal(kFolder, base_.path(), u"Pondera"_s), among);
    EXPECT_EQ(refusal(kZip, roots_.website(u"Shop/a.zip"_s)), among);
    EXPECT_EQ(refusal(kZip, base_.path(u"a.zip"_s)), u"(none)");
    EXPECT_EQ(refusal(kFolder, u""_s), u"Choose the folder to export to.");
    EXPECT_EQ(refusal(kZip, out_.path()), u"Type a name for the ZIP file.");
    EXPECT_TRUE(refusal(kZip, out_.path(u"none/a"_s)).endsWith(u"does not exist."_s));
    EXPECT_TRUE(refusal(kFolder, out_.path(u"file"_s)).endsWith(u"is a file, not a folder."_s));
}

}  // namespace pondera
