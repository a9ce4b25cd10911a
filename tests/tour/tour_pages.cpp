#include <QDir>
#include <QTest>
#include <QWebEngineView>

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/web_browser.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {

/// Goes on with the Website that the tour before made.
TEST_F(Tour, PagesAreAddedLinkedRenamedCheckedAndExported) {
    ASSERT_NO_FATAL_FAILURE(open_window());
    Workbench& workbench = window_->workbench();
    ASSERT_TRUE(workbench.open_website(u"Lighthouse"_s));
    const QDir folder(workbench.website_folder());
    const auto text_of = [&](const QString& file) {
        return read_text_file(folder.filePath(file)).value_or(TextFile{}).text;
    };
    const auto name_it = [this](const QString& name, const QString& picture) {
        return [this, name, picture](const FormHand& form) {
            form.type(u"txtName"_s, name);
            photograph(form.form(), picture);
            form.click(u"OKButton"_s);
        };
    };

    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, name_it(u"Visits"_s, u"new-page"_s));
    trigger(u"mnu_pag_new"_s);
    ASSERT_EQ(workbench.page(), u"_4_Visits.htm"_s);
    prompts_.expect_message(u"Would you like to add a page ?"_s, Answer::kYes);
    trigger(u"aggiungi"_s);
    ASSERT_EQ(workbench.page(), u"_4_Visits_page1_.htm"_s);
    photograph(*window_, u"page-added"_s);

    ASSERT_TRUE(workbench.load(u"index.htm"_s));
    select_paragraph(u"h1 + p"_s);
    prompts_.expect_form(u"frm_collegamento"_s, [this](const FormHand& form) {
        form.choose(u"list"_s, u"Visits  ;  [page]"_s);
        photograph(form.form(), u"link"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"collegamento"_s);
    photograph(*window_, u"linked"_s);
    ASSERT_TRUE(workbench.save());
    EXPECT_TRUE(text_of(u"index.htm"_s).contains(u"<A href=\"_4_Visits.htm\">"_s));

    ASSERT_TRUE(workbench.load(u"_4_Visits_page1_.htm"_s));
    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, name_it(u"Opening"_s, u"rename-page"_s));
    trigger(u"rinomina"_s);
    ASSERT_EQ(workbench.page(), u"_4_Opening_page1_.htm"_s);
    for (const QString& file : folder.entryList({u"*.htm"_s}, QDir::Files))
        EXPECT_FALSE(file.contains(u"Visits"_s) || text_of(file).contains(u"_4_Visits"_s)) << file.toStdString();
    photograph(*window_, u"renamed"_s);

    // A visitor follows the link and leafs forth and back.
    auto& browser = *window_->findChild<WebBrowser*>();
    const auto follow = [&](const QString& link, const QString& to) {
        browser.page()->runJavaScript(u"document.querySelector(\"%1\").click()"_s.arg(link));
        EXPECT_TRUE(wait_until([&] { return workbench.page() == to && browser.shown_file() == to; }))
            << to.toStdString();
        QTest::qWait(300);
    };
    ASSERT_TRUE(workbench.load(u"index.htm"_s));
    trigger(u"Modo_Browse"_s);
    ASSERT_TRUE(wait_until([&] { return workbench.browsing() && browser.shown_file() == u"index.htm"; }));
    QTest::qWait(500);
    follow(u"h1 + p a"_s, u"_4_Opening.htm"_s);
    photograph(*window_, u"first-page-of-group"_s);
    follow(u"#F_Dex"_s, u"_4_Opening_page1_.htm"_s);
    follow(u"[name=FRECCIAxSINISTRA]"_s, u"_4_Opening.htm"_s);
    trigger(u"Modo_edit"_s);
    ASSERT_TRUE(wait_until([&] { return !workbench.browsing(); }));

    prompts_.expect_message(u"no broken links"_s);
    trigger(u"mnu_link_rotti"_s);
    ASSERT_TRUE(QFile::remove(folder.filePath(u"media/img/Sea.jpg"_s)));
    prompts_.expect_form(u"frm_link_rotti"_s, [this](const FormHand& form) {
        photograph(form.form(), u"broken-links"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"mnu_link_rotti"_s);
    EXPECT_EQ(workbench.page(), u"index.htm"_s);
    EXPECT_TRUE(editor_->selection().element);
    photograph(*window_, u"broken-picture"_s);
    ASSERT_TRUE(
        QFile::copy(QDir(roots_.graphics_library()).filePath(u"Sea.jpg"_s), folder.filePath(u"media/img/Sea.jpg"_s)));

    const QDir target(roots_.drive_root());
    prompts_
        .expect_form(u"Frm_Esporta"_s,
                     [&](const FormHand& form) {
                         form.click(u"optFolder"_s).type(u"txtPath"_s, target.path());
                         photograph(form.form(), u"export"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_message(u"Website exported to:"_s);
    trigger(u"Esporta_Website"_s);
    EXPECT_EQ(read_file(target.filePath(u"Lighthouse/_4_Opening.htm"_s)),
              read_file(folder.filePath(u"_4_Opening.htm"_s)));
    EXPECT_TRUE(target.exists(u"Lighthouse/media/img/Sea.jpg"_s));
    EXPECT_FALSE(target.exists(u"Lighthouse/§_4_Opening.htm"_s));
    keep_website(folder.path());
}

}  // namespace pondera
