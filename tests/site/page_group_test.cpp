#include "site/page_group.h"

#include <map>

#include "site/page_name.h"
#include "tests/support/test_folder.h"

namespace pondera {

static std::map<QString, QByteArray> contents_of(const TestFolder& folder) {
    std::map<QString, QByteArray> contents;
    for (const QString& name : QDir(folder.path()).entryList(QDir::Files)) contents[name] = folder.bytes(name);
    return contents;
}

TEST(PageGroup, NamesTellThePlace) {
    EXPECT_EQ(following_page_name(u"_4_Tour.htm"_s), u"_4_Tour_page1_.htm"_s);
    EXPECT_EQ(following_page_name(u"_4_Tour_page9_.htm"_s), u"_4_Tour_page10_.htm"_s);
    EXPECT_EQ(first_page_of_group(u"_4_My_Park_page12_.htm"_s), u"_4_My_Park.htm"_s);
    EXPECT_EQ(group_place(u"_4_TOUR_PAGE3_.HTM"_s).value().number, 3);
    for (const QString& other : {u"_4_Tour.htm"_s, u"_4_Old_Prices2_.htm"_s, u"_4_Tour_page_.htm"_s,
                                 u"_4_Tour_page03_.htm"_s, u"_4_Tour_page3.htm"_s, u"_4_Tour_page99999999999_.htm"_s})
        EXPECT_EQ(group_place(other), std::nullopt) << other.toStdString();
}

TEST(PageGroup, RenumberingLosesAndOverwritesNothing) {
    // Published pages and editing copies, some alone, some in capitals; then what is no page of the group.
    const QStringList moved{u"_4_Tour_page2_.htm"_s, u"§_4_Tour_page2_.htm"_s, u"§_4_Tour_page3_.htm"_s,
                            u"_4_Tour_page4_.htm"_s, u"_4_Tour_Page9_.htm"_s,  u"§_4_Tour_Page9_.htm"_s};
    const QStringList others{u"_4_Tour.htm"_s,           u"§_4_Tour.htm"_s,       u"_4_Tour_page1_.htm"_s,
                             u"_4_Tourist_page3_.htm"_s, u"_4_tour_page5_.htm"_s, u"_4_Tour_page4.htm"_s};
    const TestFolder folder;
    for (const QString& file : moved + others) folder.put(file, file.toUtf8());
    const auto before = contents_of(folder);
    auto expected = before;
    for (const QString& file : moved) expected.erase(file);
    for (const QString& file : moved) {
        const auto [start, number, end] = group_place(file).value();
        expected[start + QString::number(number + 1) + end] = file.toUtf8();
    }
    const auto [moves, error] =
        Rinominazione_File_Succ(folder.path(), u"§_4_Tour_page1_.htm"_s, Renumbering::kMakeRoom);
    EXPECT_EQ(error, QString());
    EXPECT_EQ(moves.size(), 4);
    EXPECT_EQ(contents_of(folder), expected);
    EXPECT_EQ(Rinominazione_File_Succ(folder.path(), u"_4_Tour_page1_.htm"_s, Renumbering::kCloseGap).error, QString());
    EXPECT_EQ(contents_of(folder), before);
}

TEST(PageGroup, WhatStopsTheRenumberingIsTold) {
    const TestFolder folder;
    EXPECT_EQ(Rinominazione_File_Succ(folder.path(), u"_4_Tour.htm"_s, Renumbering::kMakeRoom).error,
              u"Unforeseen mistake '_P' not noticed the name of the following page"_s);

    // The published page can be moved, its editing copy cannot: a folder has the name.
    for (const QString& name : {u"_4_Tour_page3_.htm"_s, u"_4_Tour_page4_.htm"_s, u"§_4_Tour_page4_.htm"_s})
        folder.put(name, name.toUtf8());
    ASSERT_TRUE(create_folder(folder.path(u"§_4_Tour_page5_.htm"_s)));
    auto expected = contents_of(folder);
    expected[u"_4_Tour_page5_.htm"_s] = expected.extract(u"_4_Tour_page4_.htm"_s).mapped();
    const auto [moves, error] = Rinominazione_File_Succ(folder.path(), u"_4_Tour_page2_.htm"_s, Renumbering::kMakeRoom);
    EXPECT_EQ(error, u"Renaming subsequent files Error: 'copy'"_s);
    EXPECT_EQ(moves, QList<PageMove>({{u"_4_Tour_page4_.htm"_s, u"_4_Tour_page5_.htm"_s}}));
    EXPECT_EQ(contents_of(folder), expected);
}

TEST(PageName, FileNamesAreReadAsAPersonSeesThem) {
    using enum PageKind;
    const std::vector<std::tuple<QString, PageKind, QString, QString, QString>> cases{
        {u"_4_Subject.htm"_s, kSubject, u"Subject"_s, u""_s, u"  ;  [page]"_s},
        {u"§_1_Prices.HTML"_s, kCard, u"Prices"_s, u""_s, u"  ;  [page]"_s},
        {u"§_2_Holidays.htm"_s, kPhotoShow, u"Holidays"_s, u"  [photo-show]"_s, u"  ;  [photo-show]"_s},
        {u"_0_Board.htm"_s, kProtected, u"Board"_s, u"  [protected page]"_s, u"  ;  [protected page]"_s},
        {u"_y_News.htm"_s, kExternal, u"News"_s, u"  [external web page]"_s, u"  ;  [external web page]"_s},
        {u"§_x_Info.htm"_s, kPopup, u"Info"_s, u"  [popup]"_s, u"  ;  [popup]"_s},
        // The list goes by the search for a code, the status bar by how the name begins.
        {u"_x_Tour_4_.htm"_s, kSubject, u"Tour_4_"_s, u"  [popup]"_s, u"  ;  [page]"_s},
        {u"_1_Tour_2_.htm"_s, kPhotoShow, u"Tour_2_"_s, u""_s, u"  ;  [photo-show]"_s},
        {u"about.htm"_s, kNone, u"about"_s, u""_s, u"  ;  [page]"_s},
        {u"Price list.PDF"_s, kNone, u"Price list.PDF"_s, u""_s, u"  ;  [Acrobat page]"_s},
        {u"Letter.doc"_s, kNone, u"Letter.doc"_s, u""_s, u"  ;  [Word page]"_s},
    };
    for (const auto& [file, kind, name, status_tag, list_tag] : cases) {
        EXPECT_EQ(page_kind(file), kind) << file.toStdString();
        EXPECT_EQ(published_name(editing_copy_name(file)), published_name(file));
        EXPECT_EQ(strip_tutto(file), name);
        EXPECT_EQ(status_label(file), name + status_tag);
        EXPECT_EQ(page_list_display(file), name + list_tag);
    }
    for (const QString& home : {kHomePage, editing_copy_name(kHomePage)})
        EXPECT_EQ(QStringList({status_label(home), page_list_display(home), page_list_entry(home)}),
                  QStringList({u"HOME PAGE"_s, u"HOME PAGE"_s, u"index  ; [index]"_s}));
}

}  // namespace pondera
