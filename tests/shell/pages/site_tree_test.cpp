#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The tree of a Website with a group of pages.
class SiteTreeTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        have({u"_4_Tour.htm"_s, u"_4_Tour_page1_.htm"_s, u"_4_Tour_page2_.htm"_s, u"_4_Tour_page10_.htm"_s,
              u"_4_Lost_page3_.htm"_s, u"_y_Outside.htm"_s, u"index_page1_.htm"_s});
        open(u"Shop"_s);
    }

    void have(const QStringList& pages) {
        for (const QString& page : pages) write(u"Shop"_s, page, u"x"_s);
    }

    /// The items in view as lines, those deeper behind more dots; the current page in asterisks.
    QString shown() {
        QStringList lines;
        for (QTreeWidgetItem* line = tree().topLevelItem(0); line != nullptr; line = tree().itemBelow(line)) {
            qsizetype depth = 0;
            for (const QTreeWidgetItem* parent = line->parent(); parent != nullptr; parent = parent->parent()) ++depth;
            const bool marked = line->font(0).bold() && depth > 0;
            lines += QString(depth, u'.') + (marked ? u"*%1*"_s.arg(line->text(0)) : line->text(0));
        }
        return lines.join(u' ');
    }
};

TEST_F(SiteTreeTest, FollowingPagesStandUnderTheFirstOfTheirGroup) {
    EXPECT_EQ(shown(),
              u"Shop .*HOME PAGE* ..page 1 .Pages ..Lost_page3_ ..Tour ...page 1 ...page 2 "
              "...page 10 ..Trips .External web pages ..Outside .Popups ..Map");
}

TEST_F(SiteTreeTest, WhatIsFoldedAndChosenOutlastsARefresh) {
    in_tree(u"Tour"_s).setExpanded(false);
    in_tree(u"Popups"_s).setExpanded(false);
    click_in_tree(u"_4_Trips.htm"_s);
    tree().setCurrentItem(&in_tree(u"Outside"_s));
    have({u"_4_About.htm"_s, u"_4_Tour_page11_.htm"_s});
    workbench().refresh_tree();
    EXPECT_EQ(shown(),
              u"Shop .HOME PAGE ..page 1 .Pages ..About ..Lost_page3_ ..Tour ..*Trips* .External web pages "
              "..Outside .Popups");
    EXPECT_EQ(chosen_in_tree(), u"_y_Outside.htm");

    ASSERT_TRUE(workbench().load(u"_4_Tour_page2_.htm"_s));
    EXPECT_TRUE(in_tree(u"Tour"_s).isExpanded()) << "the current page is in view";
    EXPECT_EQ(chosen_in_tree(), u"_4_Tour_page2_.htm");
}

TEST_F(SiteTreeTest, FollowsWhatOtherProgramsDo) {
    have({u"_4_About.htm"_s});
    QFile::remove(shop(u"_y_Outside.htm"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return shown().contains(u"About"_s) && !shown().contains(u"Outside"_s); }));
}

TEST_F(SiteTreeTest, ARefreshOfManyPagesStaysWhereItWas) {
    QStringList pages{u"index.htm"_s};
    for (int n = 1; n < 1000; ++n) pages += {u"_4_Page%1.htm"_s.arg(n), u"_4_Page%1_page1_.htm"_s.arg(n)};
    tree().show_website(u"Shop"_s, pages);
    tree().mark_current(u"_4_Page700_page1_.htm"_s);
    EXPECT_GT(tree().verticalScrollBar()->value(), 0);

    constexpr int kScrolled = 40;
    tree().verticalScrollBar()->setValue(kScrolled);
    tree().show_website(u"Shop"_s, pages + QStringList{u"_4_Zoo.htm"_s});
    EXPECT_EQ(tree().verticalScrollBar()->value(), kScrolled);
}

}  // namespace pondera
