#include "site/page_group.h"

#include <map>
#include <random>

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
    std::mt19937 random(7);
    for (int round = 0; round < 25; ++round) {
        const TestFolder folder;
        for (const QString& other : {u"_4_Tour.htm"_s, u"§_4_Tour.htm"_s, u"_4_Tourist_page3_.htm"_s,
                                     u"_4_tour_page4_.htm"_s, u"_4_Tour_page4.htm"_s, u"_§_1_card.htm"_s})
            folder.put(other, other.toUtf8());
        int following = 0;
        const int current = 1 + static_cast<int>(random() % 12);
        for (int number = 1; number <= 12; ++number) {
            const QString page = (random() % 4 ? u"_4_Tour_page%1_.htm"_s : u"_4_Tour_Page%1_.htm"_s).arg(number);
            const auto kinds = random() % 4;
            if (kinds & 1U) folder.put(page, page.toUtf8());
            if (kinds & 2U) folder.put(editing_copy_name(page), editing_copy_name(page).toUtf8());
            following += kinds != 0 && number > current;
        }
        const auto before = contents_of(folder);
        const QString current_page = u"§_4_Tour_page%1_.htm"_s.arg(current);

        const auto [moves, error] = Rinominazione_File_Succ(folder.path(), current_page, Renumbering::kMakeRoom);
        ASSERT_EQ(error, QString());
        const auto after = contents_of(folder);
        EXPECT_EQ(after.size(), before.size());
        for (const auto& [name, bytes] : after) {
            // Each file holds the name that it had; only those after the current page have moved, by one.
            const auto place = group_place(published_name(name));
            const auto old_place = group_place(published_name(QString::fromUtf8(bytes)));
            const bool ours = old_place && old_place->before.startsWith(u"_4_Tour_"_s) && old_place->number > current;
            EXPECT_TRUE(ours ? place && place->number == old_place->number + 1 : name == QString::fromUtf8(bytes))
                << bytes.toStdString() << " became " << name.toStdString();
        }
        EXPECT_EQ(moves.size(), following);

        ASSERT_EQ(Rinominazione_File_Succ(folder.path(), current_page, Renumbering::kCloseGap).error, QString());
        EXPECT_EQ(contents_of(folder), before);
    }
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

}  // namespace pondera
