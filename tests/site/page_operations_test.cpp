#include "site/page_operations.h"

#include <QRegularExpression>

#include "base/roots.h"
#include "site/first_start.h"
#include "site/group_arrows.h"
#include "site/page_name.h"
#include "site/page_references.h"
#include "site/website_creation.h"
#include "site/website_listing.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A Website "Shop" made from a shipped model.
class PageOperations : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(install_shipped_files(QStringLiteral(PONDERA_SOURCE_DIR "/system"), roots_));
        ASSERT_TRUE(create_website_folder(roots_, u"Shop"_s));
        ASSERT_TRUE(fill_website(roots_, {u"Shop"_s, u"Standard_Interface"_s, 1}));
    }

    [[nodiscard]] QString folder() const { return roots_.website(u"Shop"_s); }
    [[nodiscard]] QByteArray bytes(const QString& file) const { return base_.bytes(u"Pondera/Shop/"_s + file); }
    [[nodiscard]] QString text(const QString& file) const { return QString::fromUtf8(bytes(file)); }
    void put(const QString& file, const QString& text) const { base_.put(u"Pondera/Shop/"_s + file, text.toUtf8()); }
    [[nodiscard]] bool exists(const QString& file) const { return QDir(folder()).exists(file); }
    void put_page(const QString& page, const QString& text) const {
        put(page, text);
        put(editing_copy_name(page), text);
    }

    /// A page that leads the group "Tour", with `following` more, all made by the commands.
    void make_tour(int following) {
        ASSERT_TRUE(create_page({folder(), PageKind::kSubject, u"Tour"_s}));
        put(u"_4_Tour.htm"_s, text(u"§_4_Tour.htm"_s));
        QString page = u"_4_Tour.htm"_s;
        for (int i = 0; i < following; ++i) {
            const auto added = add_following_page(roots_, folder(), page);
            ASSERT_TRUE(added) << added.error().toStdString();
            page = added->page;
        }
    }

    /// Where a file's arrow leads, "-" when it has none.
    [[nodiscard]] QString led(const QString& file, GroupArrow arrow) const {
        const QString page = text(file);
        for (const PageReference& reference : page_references(page))
            if (page.sliced(reference.end)
                    .startsWith(arrow == GroupArrow::kNext ? u"\"><IMG id=F_Dex"_s : u"\"><IMG id=F_Sin"_s))
                return reference.address;
        return u"-"_s;
    }

    /// The pages as visitors leaf through them, "name: title, arrow back, arrow on"; published page and editing copy
    /// alike.
    [[nodiscard]] QString leafed() const {
        static const QRegularExpression title(u"<title>(.*)</title>"_s);
        QStringList pages;
        for (const QString& page : list_pages(folder())) {
            QStringList both;
            for (const QString& file : {page, editing_copy_name(page)})
                both += u"%1: %2, %3, %4"_s.arg(page, title.match(text(file)).captured(1),
                                                led(file, GroupArrow::kPrevious), led(file, GroupArrow::kNext));
            EXPECT_EQ(both[0], both[1]);
            if (page != kHomePage) pages += both[0];
        }
        return pages.join(u" | "_s).remove(u"_4_"_s).remove(u".htm"_s);
    }

    TestFolder base_;
    Roots roots_{base_.path()};
};

TEST_F(PageOperations, ANewPageIsAnEditingCopyOfTheCard) {
    EXPECT_EQ(create_page({folder(), PageKind::kSubject, u"Città"_s}), u"_4_Città.htm"_s);
    for (const QString& part : {u"<title>Città</title>"_s, u"<h1>Città</h1>"_s})
        EXPECT_EQ(text(u"§_4_Città.htm"_s).count(part), 1) << part.toStdString();
    EXPECT_FALSE(text(u"§_4_Città.htm"_s).contains(u"Avanti"_s));
    EXPECT_FALSE(exists(u"_4_Città.htm"_s));
    ASSERT_TRUE(create_page({folder(), PageKind::kPhotoShow, u"Sea"_s}));
    EXPECT_TRUE(text(u"§_2_Sea.htm"_s).contains(u"Avanti"_s));

    EXPECT_EQ(create_page({folder(), PageKind::kSubject, u"CITTÀ"_s}).error(),
              u"The name for the new page is already in use!"_s);
    EXPECT_EQ(refusal_of_used_name(folder(), PageKind::kPopup, u"Città"_s), QString());
    EXPECT_EQ(create_page({folder(), PageKind::kSubject, u"Car"_s, 3}).error(),
              u"Error occurred while creating. code:76"_s);
}

TEST_F(PageOperations, AddedPagesLeadBackAndForth) {
    make_tour(2);
    EXPECT_EQ(leafed(),
              u"Tour: Tour, -, Tour_page1_ | Tour_page1_: Tour - 2, Tour, Tour_page2_ | "
              "Tour_page2_: Tour - 3, Tour_page1_, -");
    EXPECT_EQ(text(u"_4_Tour_page2_.htm"_s).count(u"<h1>Tour</h1>"_s), 1);
    for (const QString& picture : {u"f_dex.gif"_s, u"f_sin.gif"_s}) EXPECT_TRUE(exists(u"media/img/"_s + picture));

    // The arrow was deleted by hand: it comes back, and the page behind it stays as it is.
    const QByteArray following = bytes(u"§_4_Tour_page1_.htm"_s);
    for (const QString& file : {u"_4_Tour.htm"_s, u"§_4_Tour.htm"_s})
        put(file, without_arrow(text(file), GroupArrow::kNext));
    const auto again = add_following_page(roots_, folder(), u"_4_Tour.htm"_s);
    EXPECT_EQ(again.value().page, u"_4_Tour_page1_.htm"_s);
    EXPECT_EQ(again.value().message, u"The page that follows was there already. The arrow leads to it again."_s);
    EXPECT_EQ(bytes(u"§_4_Tour_page1_.htm"_s), following);
    EXPECT_EQ(led(u"_4_Tour.htm"_s, GroupArrow::kNext), u"_4_Tour_page1_.htm"_s);

    const auto home = add_following_page(roots_, folder(), kHomePage);
    EXPECT_TRUE(text(home.value().page).contains(u"<title>Shop - 2</title>"_s));
}

TEST_F(PageOperations, APageThatCannotBeAddedChangesNothing) {
    make_tour(0);
    const QByteArray before = bytes(u"§_4_Tour.htm"_s);
    QFile::setPermissions(QDir(folder()).filePath(u"§_4_Tour.htm"_s), QFile::ReadOwner);
    EXPECT_EQ(add_following_page(roots_, folder(), u"_4_Tour.htm"_s).error(),
              u"Disk protected. Read only! impossible to create the file!"_s);
    EXPECT_EQ(leafed(), u"Tour: Tour, -, -");
    EXPECT_EQ(bytes(u"§_4_Tour.htm"_s), before);
    EXPECT_EQ(add_following_page(roots_, folder(), u"_4_None.htm"_s).error(),
              u"Error occurred while creating. code:76"_s);
}

TEST(GroupArrows, AreFoundMovedAndTakenAway) {
    const auto next = [](const QString& page) { return with_arrow(page, GroupArrow::kNext, u"_4_a b.htm"_s); };
    const QString arrow = next({});
    EXPECT_TRUE(arrow.startsWith(u"<A href=\"_4_a%20b.htm\"><IMG id=F_Dex name=FRECCIAxDEX style=\"Z-INDEX: 830; "_s));
    EXPECT_EQ(next(u"<Body>x<!-- </body> --></Body></html>"_s),
              u"<Body>x<!-- </body> -->"_s + arrow + u"</Body></html>"_s);
    EXPECT_EQ(next(next(u"x"_s)), u"x"_s + arrow);
    expect_results(next, {u"<a class=b href=old.htm>Go <img name='FrecciaxDex'></a> → <a class=b "
                          u"href=\"_4_a%20b.htm\">Go <img name='FrecciaxDex'></a>",
                          u"<a name=x></a><IMG id=f_dex> → <a name=x></a><A href=\"_4_a%20b.htm\"><IMG id=f_dex></A>"});
    expect_results([](const QString& page) { return without_arrow(page, GroupArrow::kNext); },
                   {u"1<A href=x><IMG id=F_Dex></A>2 → 12",
                    u"<A href=x>Go <IMG id=F_Dex>on</A><A>3</A> → Go on<A>3</A>", u"1<IMG id=F_Dex>2 → 12",
                    u"<IMG src=\"media/img/f_dex.gif\" id=DEX> F_Dex → <IMG "
                    u"src=\"media/img/f_dex.gif\" id=DEX> F_Dex"});
}

TEST_F(PageOperations, ARenamedPageTakesItsGroupAndAllLinksWithIt) {
    make_tour(2);
    put_page(u"_4_Tourist.htm"_s, u"<title>Tour</title><a href=\"_4_Tour.htm\">"_s);
    put(u"media/img/reference.js"_s, u"List1_0 = _4_Tour.htm\r\nlstSottoVoce1_0 = Tour\r\n"_s);
    put(u"media/img/External_HTML_Tour.txt"_s, u"<b><a href=_4_Tour_page1_.htm>x</a>"_s);
    EXPECT_EQ(name_to_rename(u"_4_Tour_page2_.htm"_s), u"Tour"_s);

    const PageOutcome outcome = rename_page(folder(), u"_4_Tour_page1_.htm"_s, u"Gite"_s);
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(outcome.page, u"_4_Gite_page1_.htm"_s);
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(leafed(),
              u"Gite: Gite, -, Gite_page1_ | Gite_page1_: Gite - 2, Gite, Gite_page2_ | "
              "Gite_page2_: Gite - 3, Gite_page1_, - | Tourist: Tour, -, -");
    EXPECT_TRUE(text(u"_4_Tourist.htm"_s).contains(u"\"_4_Gite.htm\""_s));
    EXPECT_EQ(bytes(u"media/img/reference.js"_s), "List1_0 = _4_Gite.htm\r\nlstSottoVoce1_0 = Tour\r\n");
    EXPECT_EQ(bytes(u"media/img/External_HTML_Gite.txt"_s), "<b><a href=_4_Gite_page1_.htm>x</a>");
    EXPECT_FALSE(exists(u"media/img/External_HTML_Tour.txt"_s));

    EXPECT_TRUE(rename_page(folder(), u"_4_Gite.htm"_s, u"GITE"_s).done);
    EXPECT_TRUE(leafed().startsWith(u"GITE: GITE, -, GITE_page1_"));
    EXPECT_EQ(rename_page(folder(), u"_4_GITE.htm"_s, u"TOURIST"_s).message,
              u"Page name already in use. Change Page name."_s);
    EXPECT_FALSE(rename_page(folder(), u"_4_None.htm"_s, u"Nothing"_s).done);
    EXPECT_FALSE(rename_page(folder(), kHomePage, u"Nothing"_s).done);
}

TEST_F(PageOperations, WhatARenameCouldNotDoIsTold) {
    put_page(u"_x_Map.htm"_s, u"<title>My map</title><a href=_x_Map.htm>"_s);
    for (int i = 10; i < 22; ++i) {
        put(u"_4_Page%1.htm"_s.arg(i), u"<a href=\"javascript:esempio('_x_Map.htm');\">"_s);
        QFile::setPermissions(QDir(folder()).filePath(u"_4_Page%1.htm"_s.arg(i)), QFile::ReadOwner);
    }
    QFile::setPermissions(QDir(folder()).filePath(u"_x_Map.htm"_s), QFile::ReadOwner);

    const PageOutcome outcome = rename_page(folder(), u"_x_Map.htm"_s, u"Plan"_s);
    EXPECT_TRUE(outcome.done);
    EXPECT_TRUE(
        outcome.message.startsWith(u"The page has its new name, but these files could not be changed:\n_4_Page"));
    EXPECT_EQ(outcome.message.count(u".htm: no permission\n"), 10);
    EXPECT_TRUE(outcome.message.endsWith(u"\nand 2 more"));
    EXPECT_EQ(bytes(u"_x_Plan.htm"_s), "<title>My map</title><a href=_x_Plan.htm>");
    EXPECT_FALSE(exists(u"_x_Map.htm"_s) || exists(u"§_x_Map.htm"_s));
}

TEST_F(PageOperations, AGroupClosesUpBehindADeletedPage) {
    make_tour(3);
    put_page(u"_4_Links.htm"_s, u"<title>Links</title><a href=_4_Tour_page3_.htm><a href=_4_Tour.htm>"_s);
    put(u"media/img/reference.js"_s, u"List1_0 = _4_Tour_page2_.htm\r\nList1_1 = _4_Tour_page3_.htm\r\n"_s);

    PageOutcome outcome = delete_page(folder(), u"_4_Tour_page2_.htm"_s);
    EXPECT_EQ(outcome.page + outcome.message, u"_4_Tour_page1_.htm"_s);
    EXPECT_EQ(leafed(),
              u"Links: Links, -, - | Tour: Tour, -, Tour_page1_ | "
              "Tour_page1_: Tour - 2, Tour, Tour_page2_ | Tour_page2_: Tour - 3, Tour_page1_, -");
    EXPECT_TRUE(text(u"_4_Links.htm"_s).contains(u"<a href=_4_Tour_page2_.htm>"_s));
    EXPECT_EQ(bytes(u"media/img/reference.js"_s), "List1_0 = \r\nList1_1 = _4_Tour_page2_.htm\r\n");

    outcome = delete_page(folder(), u"_4_Tour.htm"_s);
    EXPECT_EQ(outcome.page + outcome.message, u"_4_Tour.htm"_s);
    EXPECT_EQ(leafed(), u"Links: Links, -, - | Tour: Tour, -, Tour_page1_ | Tour_page1_: Tour - 2, Tour, -");
    EXPECT_EQ(delete_page(folder(), u"_4_Tour_page1_.htm"_s).page, u"_4_Tour.htm"_s);
    EXPECT_EQ(delete_page(folder(), u"_4_Tour.htm"_s).page, kHomePage);
}

TEST_F(PageOperations, ADeletionThatCannotBeIsRefused) {
    const QByteArray home = bytes(kHomePage);
    EXPECT_EQ(delete_page(folder(), kHomePage).message, u"You cannot delete the file index.htm"_s);
    EXPECT_EQ(bytes(kHomePage), home);
    EXPECT_EQ(delete_page(folder(), u"_4_None.htm"_s).message, u"Error occurred while retrieving file to delete!"_s);
    put(u"§_4_Car.htm/file"_s, u"x"_s);
    const PageOutcome outcome = delete_page(folder(), u"_4_Car.htm"_s);
    EXPECT_EQ(outcome.message, u"Error occurred: page could not be deleted."_s);
    EXPECT_FALSE(outcome.done);
}

}  // namespace pondera
