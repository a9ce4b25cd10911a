#include "site/page_group.h"

#include <map>

#include "site/page_name.h"
#include "tests/support/folder_text.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(PageGroup, NamesTellThePlace) {
    const auto told = [](const QString& page) {
        const auto place = group_place(page);
        return first_page_of_group(page) + (place ? u" %1 "_s.arg(place->number) : u" "_s) + following_page_name(page);
    };
    expect_results(told, {u"_4_Tour.htm → _4_Tour.htm _4_Tour_page1_.htm",
                          u"_4_My_Park_page9_.htm → _4_My_Park.htm 9 _4_My_Park_page10_.htm"});
    EXPECT_EQ(group_place(u"_4_TOUR_PAGE3_.HTM"_s).value().number, 3);
    for (const QString& other :
         u"_4_Old_Prices2_.htm _4_Tour_page_.htm _4_Tour_page03_.htm _4_Tour_page99999999999_.htm"_s.split(u' '))
        EXPECT_EQ(group_place(other), std::nullopt) << other.toStdString();
}

TEST(PageGroup, RenumberingLosesAndOverwritesNothing) {
    // Published pages and editing copies, some alone, some in capitals; then what is no page of the group.
    const TestFolder folder;
    folder.put(u"_4_Tour_page2_.htm"_s, "p2");
    folder.put(u"§_4_Tour_page2_.htm"_s, "e2");
    folder.put(u"§_4_Tour_page3_.htm"_s, "e3");
    folder.put(u"_4_Tour_Page9_.htm"_s, "p9");
    folder.put_all(u"."_s,
                   u"_4_Tour.htm _4_Tour_page1_.htm _4_Tourist_page3_.htm _4_tour_page5_.htm _4_Tour_page4.htm"_s);
    const QString before = text_of_folder(folder.path());
    const auto [moves, error] =
        Rinominazione_File_Succ(folder.path(), u"§_4_Tour_page1_.htm"_s, Renumbering::kMakeRoom);
    EXPECT_EQ(error, QString());
    EXPECT_EQ(moves.size(), 3);
    EXPECT_EQ(text_of_folder(folder.path()),
              u"_4_Tour.htm=x _4_Tour_Page10_.htm=p9 _4_Tour_page1_.htm=x _4_Tour_page3_.htm=p2 _4_Tour_page4.htm=x "
              "_4_Tourist_page3_.htm=x _4_tour_page5_.htm=x §_4_Tour_page3_.htm=e2 §_4_Tour_page4_.htm=e3");
    EXPECT_EQ(Rinominazione_File_Succ(folder.path(), u"_4_Tour_page1_.htm"_s, Renumbering::kCloseGap).error, QString());
    EXPECT_EQ(text_of_folder(folder.path()), before);
}

TEST(PageGroup, WhatStopsTheRenumberingIsTold) {
    const TestFolder folder;
    EXPECT_EQ(Rinominazione_File_Succ(folder.path(), u"_4_Tour.htm"_s, Renumbering::kMakeRoom).error,
              u"Unforeseen mistake '_P' not noticed the name of the following page"_s);

    // The published page can be moved, its editing copy cannot: a folder has the name.
    folder.put_all(u"."_s, u"_4_Tour_page3_.htm _4_Tour_page4_.htm §_4_Tour_page4_.htm"_s);
    ASSERT_TRUE(create_folder(folder.path(u"§_4_Tour_page5_.htm"_s)));
    const auto [moves, error] = Rinominazione_File_Succ(folder.path(), u"_4_Tour_page2_.htm"_s, Renumbering::kMakeRoom);
    EXPECT_EQ(error, u"Renaming subsequent files Error: 'copy'"_s);
    EXPECT_EQ(moves, QList<PageMove>({{u"_4_Tour_page4_.htm"_s, u"_4_Tour_page5_.htm"_s}}));
    EXPECT_EQ(text_of_folder(folder.path()), u"_4_Tour_page3_.htm=x _4_Tour_page5_.htm=x §_4_Tour_page4_.htm=x");
}

TEST(PageName, FileNamesAreReadAsAPersonSeesThem) {
    using enum PageKind;
    const auto told = [](const QString& file) {
        EXPECT_EQ(published_name(editing_copy_name(file)), published_name(file));
        EXPECT_EQ(page_list_display(file).section(u"  ;"_s, 0, 0), strip_tutto(file));
        return status_label(file) + u" ;"_s + page_list_display(file).section(u"  ;"_s, 1);
    };
    expect_results(told, {u"_4_Subject.htm → Subject ;  [page]", u"§_1_Prices.HTML → Prices ;  [page]",
                          u"§_2_Holidays.htm → Holidays  [photo-show] ;  [photo-show]",
                          u"_0_Board.htm → Board  [protected page] ;  [protected page]",
                          u"§_x_Info.htm → Info  [popup] ;  [popup]",
                          // The list goes by the search for a code, the status bar by how the name begins.
                          u"_x_Tour_4_.htm → Tour_4_  [popup] ;  [page]", u"_1_Tour_2_.htm → Tour_2_ ;  [photo-show]",
                          u"about.htm → about ;  [page]", u"Price list.PDF → Price list.PDF ;  [Acrobat page]",
                          u"Letter.doc → Letter.doc ;  [Word page]"});
    const std::map<QString, PageKind> kinds{
        {u"_0_Board.htm"_s, kProtected}, {u"_x_Tour_4_.htm"_s, kSubject}, {u"§_x_Info.htm"_s, kPopup}};
    for (const auto& [file, kind] : kinds) EXPECT_EQ(page_kind(file), kind) << file.toStdString();
    for (const QString& home : {kHomePage, editing_copy_name(kHomePage)})
        EXPECT_EQ(QStringList({status_label(home), page_list_display(home), page_list_entry(home)}),
                  QStringList({u"HOME PAGE"_s, u"HOME PAGE"_s, u"index  ; [index]"_s}));
}

}  // namespace pondera
