#include "shell/web_browser.h"
#include "site/folder_files.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {

/// Goes on with the Website that the tour before made.
TEST_F(Tour, PagesAreAddedLinkedRenamedCheckedAndExported) {
    open(u"Lighthouse"_s);
    const QDir folder(workbench().website_folder());
    const auto name_it = [](const QString& name, const QString& picture) {
        return [=](const FormHand& form) { form.type(u"txtName"_s, name).photograph(picture).click(u"OKButton"_s); };
    };
    run_form(u"mnu_pag_new"_s, u"Frm_Nuova_Scheda"_s, name_it(u"Visits"_s, u"new-page"_s));
    ASSERT_EQ(page(), u"_4_Visits.htm"_s);
    run_told(u"aggiungi"_s, u"Would you like to add a page ?"_s, Answer::kYes);
    ASSERT_EQ(page(), u"_4_Visits_page1_.htm"_s);
    photograph(u"page-added"_s);

    ASSERT_TRUE(workbench().load(u"index.htm"_s));
    select_paragraph(u"h1 + p"_s);
    run_form(u"collegamento"_s, u"frm_collegamento"_s, [](const FormHand& form) {
        form.choose(u"list"_s, u"Visits  ;  [page]"_s).photograph(u"link"_s).click(u"OKButton"_s);
    });
    photograph(u"linked"_s);
    ASSERT_TRUE(workbench().save());
    EXPECT_THAT(read(u"Lighthouse"_s, u"index.htm"_s), Holds(u"<A href=\"_4_Visits.htm\">"_s));

    ASSERT_TRUE(workbench().load(u"_4_Visits_page1_.htm"_s));
    run_form(u"rinomina"_s, u"Frm_Nuova_Scheda"_s, name_it(u"Opening"_s, u"rename-page"_s));
    ASSERT_EQ(page(), u"_4_Opening_page1_.htm"_s);
    for (const QString& file : folder.entryList({u"*.htm"_s}, QDir::Files))
        EXPECT_FALSE((file + read(u"Lighthouse"_s, file)).contains(u"_4_Visits"_s)) << file.toStdString();
    photograph(u"renamed"_s);

    // A visitor follows the link and leafs forth and back.
    auto& browser = *window_->findChild<WebBrowser*>();
    const auto follow = [&](const QString& link, const QString& to) {
        evaluate(*browser.page(), u"document.querySelector(\"%1\").click()"_s.arg(link));
        EXPECT_TRUE(wait_until([&] { return page() == to && browser.shown_file() == to; })) << to.toStdString();
        QTest::qWait(300);
    };
    ASSERT_TRUE(workbench().load(u"index.htm"_s));
    run(u"Modo_Browse"_s);
    ASSERT_TRUE(wait_until([&] { return workbench().browsing() && browser.shown_file() == u"index.htm"; }));
    QTest::qWait(500);
    follow(u"h1 + p a"_s, u"_4_Opening.htm"_s);
    photograph(u"first-page-of-group"_s);
    follow(u"#F_Dex"_s, u"_4_Opening_page1_.htm"_s);
    follow(u"[name=FRECCIAxSINISTRA]"_s, u"_4_Opening.htm"_s);
    run(u"Modo_edit"_s);
    ASSERT_TRUE(wait_until([&] { return !workbench().browsing(); }));

    run_told(u"mnu_link_rotti"_s, u"no broken links"_s);
    const QString sea = folder.filePath(u"media/img/Sea.jpg"_s);
    ASSERT_TRUE(QFile::remove(sea));
    run_form(u"mnu_link_rotti"_s, u"frm_link_rotti"_s,
             [](const FormHand& form) { form.photograph(u"broken-links"_s).click(u"OKButton"_s); });
    EXPECT_EQ(page(), u"index.htm"_s);
    EXPECT_TRUE(editor().selection().element);
    photograph(u"broken-picture"_s);
    ASSERT_TRUE(QFile::copy(QDir(roots_.graphics_library()).filePath(u"Sea.jpg"_s), sea));

    const QDir target(roots_.drive_root());
    const auto export_it = [&](const FormHand& form) {
        form.click(u"optFolder"_s).type(u"txtPath"_s, target.path()).photograph(u"export"_s).click(u"OKButton"_s);
    };
    run_form(u"Esporta_Website"_s, u"Frm_Esporta"_s, export_it, {u"Website exported to:"_s});
    EXPECT_TRUE(target.exists(u"Lighthouse/_4_Opening.htm"_s) && target.exists(u"Lighthouse/media/img/Sea.jpg"_s));

    // The finished Website is kept beside the pictures.
    if (!qEnvironmentVariableIsSet("PONDERA_PICTURES")) return;
    const QString kept = qEnvironmentVariable("PONDERA_PICTURES") + u"/Lighthouse"_s;
    EXPECT_TRUE(copy_files(folder.path(), kept, files_of_website(folder.path(), Extent::kWebsite)->files));
}

}  // namespace pondera
