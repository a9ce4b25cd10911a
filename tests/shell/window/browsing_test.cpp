#include <QDesktopServices>
#include <QDir>
#include <QPushButton>
#include <QTest>

#include "shell/browsing_rules.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/site_tree.h"
#include "shell/web_browser.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

/// Takes the addresses that would go to the system's programs.
class OpenedAddresses : public QObject {
    Q_OBJECT

  public:
    OpenedAddresses() {
        for (const QString& scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~OpenedAddresses() override {
        for (const QString& scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
    }

    QList<QUrl> addresses;

  public slots:
    void open(const QUrl& url) { addresses.append(url); }

  private:
    inline static const QStringList kSchemes{u"http"_s, u"https"_s, u"mailto"_s, u"file"_s};
};

namespace {

TEST(BrowsingRules, ThePageToEditComesFromTheFileShown) {
    struct Case {
        QString shown;
        std::optional<QString> page;
    };
    const QList<Case> cases{
        {u"index.htm"_s, u"index.htm"_s}, {u"çindex.htm"_s, u"index.htm"_s},  {u"_4_Trips.htm"_s, u"_4_Trips.htm"_s},
        {u"Old.HTML"_s, u"Old.HTML"_s},   {u"§_4_Trips.htm"_s, std::nullopt}, {u"vuota.htm"_s, u"_1_Now.htm"_s},
        {u"vuota"_s, u"_1_Now.htm"_s},    {u"photo.jpg"_s, u"_1_Now.htm"_s},  {{}, u"_1_Now.htm"_s},
    };
    for (const Case& each : cases)
        EXPECT_EQ(page_to_edit(each.shown, u"_1_Now.htm"_s), each.page) << each.shown.toStdString();
}

class BrowseTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        write(u"Shop"_s, u"offer.pdf"_s, {});
        write(u"Shop"_s, u"photo.gif"_s, {});
        write(u"Shop"_s, u"run.sh"_s, {});
        const QString page =
            uR"(<P>Home</P><A id=trips href="_4_Trips.htm">Trips</A> <A id=gone href="_4_Gone.htm">Gone</A>
            <A id=site href="https://example.org/x">Site</A> <A id=mail href="mailto:a@example.org">Mail</A>
            <A id=copy href="§_4_Trips.htm">Copy</A> <A id=pdf href="offer.pdf">Offer</A>
            <A id=out href="../Empty/index.htm">Other Website</A> <A id=blank href="_4_Trips.htm" target=_blank>New</A>)"_s;
        write(u"Shop"_s, u"çindex.htm"_s, page);
        write(u"Shop"_s, u"index.htm"_s, page);
        ASSERT_TRUE(window_->workbench().open_website(u"Shop"_s));
        browser_ = &find<WebBrowser>(u"WebBrowser1"_s);
    }

    void browse() {
        find<QPushButton>(u"lblBrowse"_s).click();
        ASSERT_TRUE(window_->workbench().browsing());
        wait_for(u"index.htm"_s);
    }

    void edit() { find<QPushButton>(u"lblEdit"_s).click(); }

    void wait_for(const QString& file) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return browser_->shown_file() == file && shows(file); }, 10000))
            << file.toStdString();
    }

    QVariant evaluate(const QString& script) { return WindowFixture::evaluate(*browser_->page(), script); }

    bool shows(const QString& file) {
        const QString complete = u"document.readyState == 'complete' && decodeURI(location.pathname).endsWith('/%1')"_s;
        return evaluate(complete.arg(file)).toBool();
    }
    /// Clicks a link with the mouse: what a script clicks may not open other programs.
    void follow(const QString& link) {
        const QVariantList place =
            evaluate(
                u"(r => [r.left + 5, r.top + 5])(document.getElementById('%1').getBoundingClientRect())"_s.arg(link))
                .toList();
        ASSERT_EQ(place.size(), 2) << link.toStdString();
        QTest::mouseClick(browser_->focusProxy(), Qt::LeftButton, {}, QPoint(place[0].toInt(), place[1].toInt()));
    }

    QString page() { return window_->workbench().page(); }

    WebBrowser* browser_ = nullptr;
};

TEST_F(BrowseTest, LinksAreShownHandedOutOrMissing) {
    const QString folder = roots_.website(u"Shop"_s);
    const auto file = [&](const QString& name) { return QUrl::fromLocalFile(QDir(folder).filePath(name)); };
    QUrl with_place = file(u"index.htm"_s);
    with_place.setFragment(u"top"_s);
    with_place.setQuery(u"q=1"_s);
    const QList<std::pair<QUrl, LinkTarget>> cases{
        {file(u"index.htm"_s), LinkTarget::kShow},
        {with_place, LinkTarget::kShow},
        {file(u"photo.gif"_s), LinkTarget::kShow},
        {QUrl(u"about:blank"_s), LinkTarget::kShow},
        {file(u"offer.pdf"_s), LinkTarget::kOutside},
        {QUrl(u"https://example.org/"_s), LinkTarget::kOutside},
        {QUrl(u"mailto:a@example.org"_s), LinkTarget::kOutside},
        {file(u"_4_Gone.htm"_s), LinkTarget::kMissing},
        {file(u"media"_s), LinkTarget::kMissing},
        {file(u"../Empty/index.htm"_s), LinkTarget::kMissing},
        {QUrl(u"file:///etc/hostname"_s), LinkTarget::kMissing},
        {file(u"run.sh"_s), LinkTarget::kMissing},
    };
    for (const auto& [url, target] : cases) EXPECT_EQ(link_target(url, folder), target) << url.toString().toStdString();
}

TEST_F(BrowseTest, ThePageIsSavedFirstAndShownWithItsScripts) {
    window_->workbench().editor().paste_at_end(u"<P id=new>written now</P><SCRIPT>document.title = 'ran'</SCRIPT>"_s);
    browse();
    EXPECT_TRUE(evaluate(u"document.body.innerText"_s).toString().contains(u"written now"_s));
    EXPECT_EQ(evaluate(u"document.title"_s), u"ran"_s);
    EXPECT_FALSE(find<QAction>(u"mnu_bold"_s).isEnabled());
    EXPECT_TRUE(find<QPushButton>(u"lblBrowse"_s).isChecked());
    photograph(u"browse"_s);
    edit();
    EXPECT_FALSE(window_->workbench().browsing());
    EXPECT_TRUE(find<QAction>(u"mnu_undo"_s).isEnabled()) << "the page was not loaded anew, its history is kept";
}

TEST_F(BrowseTest, AFailedSaveStaysInEditMode) {
    window_->workbench().editor().paste_at_end(u"<P>new</P>"_s);
    QDir(roots_.website(u"Shop"_s)).removeRecursively();
    prompts_.expect_message(u"Error occurred in the saving of the page: "_s);
    find<QPushButton>(u"lblBrowse"_s).click();
    EXPECT_FALSE(window_->workbench().browsing());
    EXPECT_TRUE(find<QPushButton>(u"lblEdit"_s).isChecked());
    EXPECT_TRUE(window_->workbench().editor().modified());
}

TEST_F(BrowseTest, APageThatIsFollowedBecomesThePageUnderEdit) {
    browse();
    follow(u"trips"_s);
    wait_for(u"_4_Trips.htm"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page() == u"_4_Trips.htm"; }));
    EXPECT_EQ(SiteTree::page_of(*find<SiteTree>(u"TreeView1"_s).currentItem()), u"_4_Trips.htm");
    edit();
    EXPECT_FALSE(window_->workbench().browsing());
    EXPECT_TRUE(window_->workbench().editor().text().contains(u"Trips to the sea"_s));

    find<QPushButton>(u"lblBrowse"_s).click();
    click_in_tree(u"_x_Map.htm"_s);
    wait_for(u"_x_Map.htm"_s);
    EXPECT_EQ(page(), u"_x_Map.htm");
}

TEST_F(BrowseTest, ALinkToNowhereIsReported) {
    browse();
    for (const QString& link : {u"gone"_s, u"out"_s}) {
        prompts_.expect_message(u"The selected page do not exist or has been deleted. Modify or cancel this link"_s);
        const auto before = prompts_.messages().size();
        follow(link);
        EXPECT_TRUE(QTest::qWaitFor([&] { return prompts_.messages().size() > before; })) << link.toStdString();
        EXPECT_EQ(browser_->shown_file(), u"index.htm");
    }
    EXPECT_EQ(page(), u"index.htm");
}

TEST_F(BrowseTest, AnEditingCopyCannotBeEdited) {
    browse();
    evaluate(u"document.getElementById('copy').href = '§_4_Trips.htm'"_s);
    follow(u"copy"_s);
    wait_for(u"§_4_Trips.htm"_s);
    prompts_.expect_message(u"Error: link to an editing file."_s);
    edit();
    EXPECT_TRUE(window_->workbench().browsing());
    EXPECT_EQ(page(), u"index.htm");
}

TEST_F(BrowseTest, OtherSitesAndDocumentsGoToTheSystem) {
    OpenedAddresses opened;
    browse();
    for (const QString& link : {u"site"_s, u"mail"_s, u"pdf"_s}) {
        const auto before = opened.addresses.size();
        follow(link);
        EXPECT_TRUE(QTest::qWaitFor([&] { return opened.addresses.size() > before; })) << link.toStdString();
    }
    EXPECT_EQ(opened.addresses.value(0), QUrl(u"https://example.org/x"_s));
    EXPECT_EQ(opened.addresses.value(1), QUrl(u"mailto:a@example.org"_s));
    EXPECT_EQ(opened.addresses.value(2).fileName(), u"offer.pdf");
    EXPECT_EQ(browser_->shown_file(), u"index.htm");
}

TEST_F(BrowseTest, ANewWindowOpensAndGoesWithBrowseMode) {
    browse();
    follow(u"blank"_s);
    const auto shown = [&] {
        const auto windows = browser_->findChildren<WebBrowser*>();
        return windows.size() == 1 && windows.first()->isVisible() && windows.first()->shown_file() == u"_4_Trips.htm";
    };
    EXPECT_TRUE(QTest::qWaitFor(shown));
    EXPECT_EQ(page(), u"index.htm");
    edit();
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser_->findChildren<WebBrowser*>().isEmpty(); }));
}

}  // namespace
}  // namespace pondera

#include "browsing_test.moc"
