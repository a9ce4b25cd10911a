#include "site/link_correction.h"

#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(LinkCorrection, OnlyLinksToMovedPagesFollow) {
    const auto corrected = [](const QString& page) {
        return with_corrected_links(page,
                                    {{u"_4_Car.htm"_s, u"_4_Auto.htm"_s},
                                     {u"_4_My Trip.htm"_s, u"_4_Città mia.htm"_s},
                                     {u"_4_T_page2_.htm"_s, u"_4_T_page1_.htm"_s},
                                     {u"_4_T_page3_.htm"_s, u"_4_T_page2_.htm"_s}},
                                    u"Shop"_s);
    };
    expect_results(
        corrected,
        {u"<A HREF='./_4_CAR.htm?_4_Car.htm#_4_Car.htm'> → <A HREF='./_4_Auto.htm?_4_Car.htm#_4_Car.htm'>",
         u"<a href=%C2%A7_4_Car.htm><a href='&sect;_4_Car.htm'><a href='?_4_Car.htm'> → "
         u"<a href=%C2%A7_4_Auto.htm><a href='&sect;_4_Auto.htm'><a href='?_4_Auto.htm'>",
         u"<a href=\"../SHOP/_4_My%20Trip.htm#a b\"> → <a href=\"../SHOP/_4_Città%20mia.htm#a b\">",
         u"<a href=_4_T_page2_.htm><a href=_4_T_page3_.htm> → <a href=_4_T_page1_.htm><a href=_4_T_page2_.htm>",
         u"<a href=\"javascript:f('_4_Car.htm',3)\"><body onload=\"go('§_4_My Trip.htm')\"> → "
         u"<a href=\"javascript:f('_4_Auto.htm',3)\"><body onload=\"go('§_4_Città%20mia.htm')\">",
         u"<script>top.location='_4_Car.htm'; // _4_Car.htm</script>_4_Car.htm → "
         u"<script>top.location='_4_Auto.htm'; // _4_Car.htm</script>_4_Car.htm"});
    expect_unchanged(corrected, {u"<a href=_4_Cars.htm><a href=http://host/_4_Car.htm><a href=../Other/_4_Car.htm>",
                                 u"<a href=#_4_Car.htm><a href=?x=_4_Car.htm><!-- <a href=_4_Car.htm> -->"});
}

TEST(LinkCorrection, EachFileKeepsItsKind) {
    const TestFolder base;
    const std::vector<std::tuple<QString, QByteArray, QByteArray>> files{
        {u"_4_Car.htm"_s, "x", "x"},
        {u"_4_CAR.htm"_s, "x", "x"},
        {u"a.htm"_s, "<p>\xE0\r<a href=_4_Car.htm>\r\n<a href=_4_CAR.htm><a href=_4_car.htm>\n",
         "<p>\xE0\r<a href=_4_Voitures%20%E2%82%AC.htm>\r\n<a href=_4_CAR.htm><a "
         "href=_4_Voitures%20%E2%82%AC.htm>\n"},
        {u"c.htm"_s, encode_text(u"<a href=_4_Car.htm>"_s, TextEncoding::kUtf16Le),
         encode_text(u"<a href=_4_Voitures%20%E2%82%AC.htm>"_s, TextEncoding::kUtf16Le)},
        {u"locked.htm"_s, "<a href=_4_Car.htm>", "<a href=_4_Car.htm>"},
        {u"media/img/menu_items.js"_s, "this.item0 = 'Car';\rthis.url0 = '_4_Car.htm';\r",
         "this.item0 = 'Car';\rthis.url0 = '_4_Voitures \xE2\x82\xAC.htm';\r"},
        {u"media/img/reference.js"_s, "txtLink1.Text = _4_Car.htm\r\nsPicLocal1 = C:\\_4_Car.htm\r\n",
         "txtLink1.Text = _4_Voitures \xE2\x82\xAC.htm\r\nsPicLocal1 = C:\\_4_Car.htm\r\n"},
    };
    for (const auto& [file, before, after] : files) base.put(u"Shop/"_s + file, before);
    ASSERT_TRUE(QFile::setPermissions(base.path(u"Shop/locked.htm"_s), QFile::ReadOwner));
    const QFile::Permissions permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther;
    ASSERT_TRUE(QFile::setPermissions(base.path(u"Shop/a.htm"_s), permissions));

    const CorrectedLinks links = Correzione_Links(base.path(u"Shop"_s), {{u"_4_Car.htm"_s, u"_4_Voitures €.htm"_s}});
    EXPECT_EQ(links.files, 4);
    ASSERT_EQ(links.failures.size(), 1);
    EXPECT_EQ(links.failures[0].path, base.path(u"Shop/locked.htm"_s));
    for (const auto& [file, before, after] : files)
        EXPECT_EQ(base.bytes(u"Shop/"_s + file), after) << file.toStdString();
    EXPECT_EQ(QFile::permissions(base.path(u"Shop/a.htm"_s)) & permissions, permissions);
    EXPECT_EQ(QDir(base.path(u"Shop"_s)).entryList(QDir::Files | QDir::Hidden).size(), 5);
}

}  // namespace pondera
