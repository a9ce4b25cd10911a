#include "shell/browsing_rules.h"
#include "shell/web_browser.h"
#include "tests/shell/window/window_fixture.h"
#include "tests/support/opened_addresses.h"

namespace pondera {

TEST(BrowsingRules, ThePageToEditComesFromTheFileShown) {
    for (const auto& [page, files] : {std::pair{u"index.htm"_s, u"index.htm çindex.htm"_s},
                                      {u"_4_Trips.htm"_s, u"_4_Trips.htm"_s},
                                      {u"Old.HTML"_s, u"Old.HTML"_s},
                                      {u"_1_Now.htm"_s, u"vuota.htm vuota photo.jpg "_s}})
        for (const QString& shown : files.split(u' ')) EXPECT_EQ(page_to_edit(shown, u"_1_Now.htm"_s), page);
    EXPECT_EQ(page_to_edit(u"§_4_Trips.htm"_s, u"_1_Now.htm"_s), std::nullopt);
}

class BrowseTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        for (const QString& file : {u"offer.pdf"_s, u"photo.gif"_s, u"run.sh"_s}) write(u"Shop"_s, file, {});
        write_page(u"Shop"_s, u"index.htm"_s,
                   uR"(<P>Home</P><A id=trips href="_4_Trips.htm">Trips</A> <A id=gone href="_4_Gone.htm">Gone</A>
                   <A id=site href="https://example.org/x">Site</A> <A id=mail href="mailto:a@example.org">Mail</A>
                   <A id=pdf href="offer.pdf">Offer</A> <A id=out href="../Empty/index.htm">Other Website</A>
                   <A id=blank href="_4_Trips.htm" target=_blank>New</A>)"_s);
        open(u"Shop"_s);
        browser_ = &find<WebBrowser>(u"WebBrowser1"_s);
    }

    void press_browse() { find<QPushButton>(u"lblBrowse"_s).click(); }
    void edit() { find<QPushButton>(u"lblEdit"_s).click(); }
    void browse() {
        press_browse();
        ASSERT_TRUE(workbench().browsing());
        wait_for(u"index.htm"_s);
    }

    void wait_for(const QString& file) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return browser_->shown_file() == file && shows(file); }, 10000))
            << file.toStdString();
    }
    bool shows(const QString& file) {
        const QString complete = u"document.readyState == 'complete' && decodeURI(location.pathname).endsWith('/%1')"_s;
        return evaluate(complete.arg(file)).toBool();
    }
    QVariant evaluate(const QString& script) { return pondera::evaluate(*browser_->page(), script); }

    /// Clicks a link with the mouse: what a script clicks may not open other programs.
    void follow(const QString& link) {
        const QString middle =
            u"(r => [r.left + 5, r.top + 5])(document.getElementById('%1').getBoundingClientRect())"_s;
        const QVariantList place = evaluate(middle.arg(link)).toList();
        ASSERT_EQ(place.size(), 2) << link.toStdString();
        QTest::mouseClick(browser_->focusProxy(), Qt::LeftButton, {}, QPoint(place[0].toInt(), place[1].toInt()));
    }

    WebBrowser* browser_ = nullptr;
};

TEST_F(BrowseTest, LinksAreShownHandedOutOrMissing) {
    const QString folder = shop();
    const QUrl base = QUrl::fromLocalFile(folder + u'/');
    for (const auto& [target, links] :
         {std::pair{LinkTarget::kShow, u"index.htm index.htm?q=1#top photo.gif about:blank"_s},
          {LinkTarget::kOutside, u"offer.pdf https://example.org/ mailto:a@example.org"_s},
          {LinkTarget::kMissing, u"_4_Gone.htm media ../Empty/index.htm file:///etc/hostname run.sh"_s}})
        for (const QString& link : links.split(u' '))
            EXPECT_EQ(link_target(base.resolved(QUrl(link)), folder), target) << link.toStdString();
}

TEST_F(BrowseTest, ThePageIsSavedFirstAndShownWithItsScripts) {
    editor().paste_at_end(u"<P id=new>written now</P><SCRIPT>document.title = 'ran'</SCRIPT>"_s);
    browse();
    EXPECT_TRUE(evaluate(u"document.body.innerText"_s).toString().contains(u"written now"_s));
    EXPECT_EQ(evaluate(u"document.title"_s), u"ran"_s);
    EXPECT_FALSE(find<QAction>(u"mnu_bold"_s).isEnabled());
    EXPECT_TRUE(find<QPushButton>(u"lblBrowse"_s).isChecked());
    edit();
    EXPECT_FALSE(workbench().browsing());
    EXPECT_TRUE(find<QAction>(u"mnu_undo"_s).isEnabled()) << "the page was not loaded anew, its history is kept";
}

TEST_F(BrowseTest, AFolderThatVanishedLosesNothingAndStaysInEditMode) {
    change_page(u"mine"_s);
    QDir(shop()).removeRecursively();
    prompts_.expect_message(u"Error occurred in the saving of the page: Path not found."_s);
    press_browse();
    EXPECT_FALSE(workbench().browsing());
    EXPECT_TRUE(find<QPushButton>(u"lblEdit"_s).isChecked());
    EXPECT_TRUE(editor().modified() && editor().text().contains(u"mine"_s));
}

TEST_F(BrowseTest, APageThatIsFollowedBecomesThePageUnderEdit) {
    browse();
    follow(u"trips"_s);
    wait_for(u"_4_Trips.htm"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page() == u"_4_Trips.htm"; }));
    EXPECT_EQ(chosen_in_tree(), u"_4_Trips.htm");
    edit();
    EXPECT_FALSE(workbench().browsing());
    EXPECT_TRUE(editor().text().contains(u"Trips to the sea"_s));

    press_browse();
    click_in_tree(u"_x_Map.htm"_s);
    wait_for(u"_x_Map.htm"_s);
    EXPECT_EQ(page(), u"_x_Map.htm");
}

TEST_F(BrowseTest, WhatIsNoPageToEditGoesToTheSystemOrIsReported) {
    OpenedAddresses opened;
    browse();
    for (const QString& link : {u"gone"_s, u"out"_s}) {
        prompts_.expect_message(u"The selected page do not exist or has been deleted. Modify or cancel this link"_s);
        const auto before = prompts_.messages().size();
        follow(link);
        EXPECT_TRUE(QTest::qWaitFor([&] { return prompts_.messages().size() > before; })) << link.toStdString();
    }
    const auto handed_out = [&](const QString& link) {
        opened.addresses.clear();
        follow(link);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !opened.addresses.isEmpty(); })) << link.toStdString();
        return opened.addresses.value(0);
    };
    EXPECT_EQ(handed_out(u"site"_s), QUrl(u"https://example.org/x"_s));
    EXPECT_EQ(handed_out(u"mail"_s), QUrl(u"mailto:a@example.org"_s));
    EXPECT_EQ(handed_out(u"pdf"_s).fileName(), u"offer.pdf");
    EXPECT_EQ(browser_->shown_file(), u"index.htm");

    evaluate(u"document.getElementById('trips').href = '§_4_Trips.htm'"_s);
    follow(u"trips"_s);
    wait_for(u"§_4_Trips.htm"_s);
    prompts_.expect_message(u"Error: link to an editing file."_s);
    edit();
    EXPECT_TRUE(workbench().browsing());
    EXPECT_EQ(page(), u"index.htm");
}

TEST_F(BrowseTest, ANewWindowOpensAndGoesWithBrowseMode) {
    browse();
    follow(u"blank"_s);
    const auto windows = [&] { return browser_->findChildren<WebBrowser*>(); };
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return windows().size() == 1 && windows()[0]->shown_file() == u"_4_Trips.htm"; }));
    EXPECT_TRUE(windows().value(0)->isVisible());
    EXPECT_EQ(page(), u"index.htm");
    edit();
    EXPECT_TRUE(QTest::qWaitFor([&] { return windows().isEmpty(); }));
}

}  // namespace pondera
