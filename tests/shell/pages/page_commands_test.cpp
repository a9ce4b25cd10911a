#include "site/website_creation.h"
#include "site/website_listing.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

const QString kAdd = u"Would you like to add a page ?"_s;
const QString kSure = u"Are you sure you want to delete a page ?"_s;
const QString kNoWayBack =
    u"The deletion is not reversible.\nPossible link to the page will not be checked.\nDo you want to continue?"_s;
const QString kMedia =
    u"Page deleted.\nAny images, audios, or videos that were used by the deleted page are still part of the website.\n"
    "Do you want to select and delete them now?"_s;

/// A Website "Club" made from a shipped model, with the pages "Trips", "Boats" and "Prices"; the home page is open.
class PageCommands : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        have_shipped_files();
        ASSERT_TRUE(create_website_folder(roots_, u"Club"_s));
        ASSERT_TRUE(fill_website(roots_, {.name = u"Club"_s, .model = u"Standard_Interface"_s, .card = 1}));
        for (const QString& page : {u"_4_Trips.htm"_s, u"_4_Boats.htm"_s, u"_4_Prices.htm"_s})
            write_page(u"Club"_s, page, u"<P>%1</P>"_s.arg(page));
        open(u"Club"_s);
    }

    [[nodiscard]] QString club(const QString& file) const { return read(u"Club"_s, file); }
    [[nodiscard]] QString pages() const { return list_pages(roots_.website(u"Club"_s)).join(u' '); }

    void load(const QString& page) { ASSERT_TRUE(workbench().load(page)) << page.toStdString(); }

    /// Adds a page behind the open one.
    void add_page() { run_told(u"Add_Pag"_s, kAdd, Answer::kYes); }

    /// "Trips" with three pages that follow it; the last one is open.
    void have_group() {
        load(u"_4_Trips.htm"_s);
        for (int n = 0; n < 3; ++n) add_page();
    }

    /// Answers the questions about the deletion of a page, the last one by `media`.
    void expect_deletion(Answer media = Answer::kNo) {
        prompts_.expect_message(kSure).expect_message(kNoWayBack).expect_message(kMedia, media);
    }

    void press_in_tree(const QString& text, Qt::Key key) {
        tree().setCurrentItem(&in_tree(text));
        QTest::keyClick(&tree(), key);
    }

    /// The commands of the tree's menu at an item, a disabled one in brackets.
    QString tree_menu(const QString& text) {
        delete window_->findChild<QMenu*>(u"tree_menu"_s);
        const QPoint position = tree().visualItemRect(&in_tree(text)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, tree().viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(tree().viewport(), &event);
        QStringList names;
        for (const QAction* action : find<QMenu>(u"tree_menu"_s).actions())
            if (!action->isSeparator())
                names += action->isEnabled() ? action->objectName() : u"(%1)"_s.arg(action->objectName());
        return names.join(u' ');
    }
};

const auto kCancelled = [](const FormHand& form) { form.click(u"CancelButton"_s); };

static ScriptedPrompts::Filler pick(const QString& entry) {
    return [entry](const FormHand& form) { form.double_click(u"list"_s, entry); };
}

TEST_F(PageCommands, ANewPageIsMadeNamedAndOpened) {
    change_page(u"unsaved"_s);
    run_told(u"mnu_pag_new"_s, u"unsaved changes"_s, Answer::kCancel);
    prompts_.expect_message(u"unsaved changes"_s, Answer::kSave);
    run_form(u"mnu_pag_new"_s, u"Frm_Nuova_Scheda"_s,
             type_names({u"ab"_s, u"My Clubs"_s, u"Trip"_s, u"Big boat"_s, u"Harbour.htm"_s}),
             {u"Choose a name with at least 3 characters"_s, u"words used in Website name"_s,
              u"words used in the name of other pages"_s, u"Cancel the space after the name"_s});
    EXPECT_EQ(page(), u"_4_Harbour.htm");
    EXPECT_TRUE(club(u"index.htm"_s).contains(u"unsaved"_s));
    EXPECT_TRUE(club(u"_4_Harbour.htm"_s).contains(u"<TITLE>Harbour</TITLE>"_s));
}

TEST_F(PageCommands, PagesAreAddedAtTheEndOfAGroupThatHasAName) {
    have_group();
    EXPECT_EQ(page(), u"_4_Trips_page3_.htm");
    EXPECT_TRUE(club(u"_4_Trips.htm"_s).contains(u"href=\"_4_Trips_page1_.htm\""_s));
    write(u"Club"_s, u"_4_Subject.htm"_s, u"x"_s);
    const QString before = pages();
    run_told(u"Add_Pag"_s, kAdd, Answer::kNo);
    for (const auto& [page, refusal] :
         {std::pair{u"_4_Subject.htm"_s, u"Rename the page before to add a page"_s},
          {u"_4_Trips_page1_.htm"_s, u"It's not possible to add another page inside a group."_s}}) {
        load(page);
        prompts_.expect_message(kAdd, Answer::kYes).expect_message(refusal);
        choose(u"Add_Pag"_s);
    }
    EXPECT_EQ(pages(), before);
}

TEST_F(PageCommands, RenamingTakesLinksAndGroupAlong) {
    write(u"Club"_s, u"§_4_Boats.htm"_s, u"<A href=\"_4_Trips.htm#top\">t</A> <A href=\"_4_Tripsters.htm\">o</A>"_s);
    have_group();
    change_page(u"unsaved"_s);
    const auto rename = [](const FormHand& form) {
        EXPECT_EQ(form.widget<QLineEdit>(u"txtName"_s).text(), u"Trips");
        type_names({u"Boat"_s, u"TripsAndMore"_s})(form);
    };
    run_form(u"mnu_rinomina_pagina"_s, u"Frm_Nuova_Scheda"_s, rename, {u"words used in the name of other pages"_s});
    EXPECT_EQ(page(), u"_4_TripsAndMore_page3_.htm");
    EXPECT_EQ(pages(),
              u"index.htm _4_Boats.htm _4_Prices.htm _4_TripsAndMore.htm _4_TripsAndMore_page1_.htm "
              "_4_TripsAndMore_page2_.htm _4_TripsAndMore_page3_.htm");
    EXPECT_TRUE(club(u"§_4_Boats.htm"_s).contains(u"\"_4_TripsAndMore.htm#top\">t</A> <A href=\"_4_Tripsters.htm\""_s));
    EXPECT_TRUE(club(u"_4_TripsAndMore_page3_.htm"_s).contains(u"unsaved"_s));
    EXPECT_EQ(chosen_in_tree(), page());
}

TEST_F(PageCommands, RenamingIsRefusedOrDoesNothing) {
    run_told(u"mnu_rinomina_pagina"_s, u"The home page cannot be renamed"_s);

    const QString before = pages();
    load(u"_4_Trips.htm"_s);
    change_page();
    for (const auto& filler : {ScriptedPrompts::Filler(kCancelled), type_names({u"Trips"_s})}) {
        run_form(u"mnu_rinomina_pagina"_s, u"Frm_Nuova_Scheda"_s, filler);
        EXPECT_EQ(pages() + page(), before + u"_4_Trips.htm"_s);
        EXPECT_TRUE(editor().modified()) << "nothing was saved on the way";
    }
    // Another spelling of its own name is no other page's.
    run_form(u"mnu_rinomina_pagina"_s, u"Frm_Nuova_Scheda"_s, type_names({u"TRIPS"_s}));
    EXPECT_EQ(page(), u"_4_TRIPS.htm");

    for (const auto& file : {u"_4_TRIPS.htm"_s, u"§_4_TRIPS.htm"_s})
        ASSERT_TRUE(QFile::remove(QDir(roots_.website(u"Club"_s)).filePath(file)));
    run_form(u"mnu_rinomina_pagina"_s, u"Frm_Nuova_Scheda"_s, type_names({u"Saved"_s}));
    EXPECT_EQ(page(), u"_4_Saved.htm") << "what another program removed is still in the editor";
}

TEST_F(PageCommands, DeletingAsksInOrderAndCanBeLeftAtEachQuestion) {
    const QString before = pages();
    const QString list = u"frm_collegamento_popup"_s;
    prompts_.expect_message(kSure, Answer::kCancel);
    prompts_.expect_message(kSure).expect_form(list, kCancelled);
    prompts_.expect_message(kSure).expect_form(list, pick(u"HOME PAGE"_s), {u"You cannot delete the file index.htm"_s});
    prompts_.expect_message(kSure).expect_form(list, pick(u"Trips  ;  [page]"_s));
    prompts_.expect_message(kNoWayBack, Answer::kCancel);
    for (int n = 0; n < 4; ++n) choose(u"Erase_Vid"_s);
    EXPECT_EQ(pages(), before);
}

TEST_F(PageCommands, TheOpenPageGoesWithItsChangesAndAnotherIsShown) {
    load(u"_4_Trips.htm"_s);
    change_page();
    prompts_.expect_message(kSure).expect_form(u"frm_collegamento_popup"_s, pick(u"Trips  ;  [page]"_s), {kNoWayBack});
    prompts_.expect_message(kMedia, Answer::kNo);
    choose(u"Erase_Vid"_s);
    EXPECT_EQ(pages() + u' ' + page(), u"index.htm _4_Boats.htm _4_Prices.htm index.htm");
    EXPECT_EQ(club(u"§_4_Trips.htm"_s), u"");
    change_page();
    prompts_.expect_message(u"unsaved changes"_s, Answer::kDiscard);
    EXPECT_TRUE(workbench().load(u"_4_Boats.htm"_s)) << "what was given up was that page's alone";

    // The page that follows takes the name of the first one of its group.
    add_page();
    change_page(u"of the follower"_s);
    EXPECT_TRUE(workbench().save());
    load(u"_4_Boats.htm"_s);
    expect_deletion(Answer::kYes);
    prompts_.expect_form(u"Frm_Cancella_Imm"_s, kCancelled);
    press_in_tree(u"Boats"_s, Qt::Key_Delete);
    EXPECT_EQ(pages() + u' ' + page(), u"index.htm _4_Boats.htm _4_Prices.htm _4_Boats.htm");
    EXPECT_TRUE(editor().text().contains(u"of the follower"_s));
}

TEST_F(PageCommands, ADeletedPageIsNotLeftOpenWhenNoOtherCanBeShown) {
    load(u"_4_Trips.htm"_s);
    for (const auto& file : {u"index.htm"_s, u"çindex.htm"_s})
        ASSERT_TRUE(QFile::remove(QDir(roots_.website(u"Club"_s)).filePath(file)));
    prompts_.expect_message(kSure).expect_message(kNoWayBack);
    prompts_.expect_message(u"File not found"_s).expect_message(kMedia, Answer::kNo);
    press_in_tree(u"Trips"_s, Qt::Key_Delete);
    EXPECT_EQ(page(), u"");
    EXPECT_FALSE(workbench().save());
    EXPECT_EQ(club(u"§_4_Trips.htm"_s), u"");
}

TEST_F(PageCommands, TheOpenPageFollowsItsGroupWhenAnotherOfItIsDeleted) {
    have_group();
    change_page(u"of the last page"_s);
    expect_deletion();
    press_in_tree(u"page 1"_s, Qt::Key_Delete);
    EXPECT_EQ(page(), u"_4_Trips_page2_.htm");
    EXPECT_TRUE(editor().text().contains(u"of the last page"_s));

    // The neighbour that is open loses its arrow in the editor too.
    load(u"_4_Trips_page1_.htm"_s);
    expect_deletion();
    press_in_tree(u"page 2"_s, Qt::Key_Delete);
    EXPECT_FALSE(editor().text().contains(u"F_Dex"_s));
    EXPECT_EQ(pages(), u"index.htm _4_Boats.htm _4_Prices.htm _4_Trips.htm _4_Trips_page1_.htm");
}

TEST_F(PageCommands, TheTreeOffersWhatFits) {
    EXPECT_EQ(tree_menu(u"HOME PAGE"_s), u"tree_open Add_Pag (mnu_rinomina_pagina) (mnu_treedelete) (mnu_treelink)");
    EXPECT_EQ(tree_menu(u"Pages"_s), u"mnu_pag_new");
    editor().execute(EditCommand::kSelectAll);
    EXPECT_EQ(tree_menu(u"Trips"_s), u"tree_open Add_Pag mnu_rinomina_pagina mnu_treedelete mnu_treelink");
    find<QAction>(u"mnu_treelink"_s).trigger();
    EXPECT_TRUE(editor().text().contains(u"href=\"_4_Trips.htm\""_s));

    prompts_.expect_message(u"unsaved changes"_s, Answer::kDiscard).expect_message(kAdd, Answer::kYes);
    tree_menu(u"Boats"_s);
    find<QMenu>(u"tree_menu"_s).findChild<QAction*>(u"Add_Pag"_s)->trigger();
    EXPECT_EQ(page(), u"_4_Boats_page1_.htm") << "a page is opened before it gets a follower";

    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, type_names({u"Fares"_s}));
    press_in_tree(u"Prices"_s, Qt::Key_F2);
    EXPECT_EQ(page(), u"_4_Fares.htm");
    window_->workbench().set_browsing(true);
    EXPECT_EQ(tree_menu(u"Trips"_s), u"tree_open (Add_Pag) (mnu_rinomina_pagina) (mnu_treedelete) (mnu_treelink)");
    press_in_tree(u"Trips"_s, Qt::Key_Delete);
}

}  // namespace pondera
