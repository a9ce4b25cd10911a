#include "shell/links/link_commands.h"

#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The page "Trips" of the Website "Shop", and files of the person's beside the Websites.
class LinkCommands : public WindowFixture {
  protected:
    void show_page(const QString& body) {
        write_page(u"Shop"_s, u"_4_Trips.htm"_s, body);
        workbench().close_website();  // what was done on the page before is given up
        open(u"Shop"_s);
        ASSERT_TRUE(workbench().load(u"_4_Trips.htm"_s));
    }

    QString body() { return body_of(editor().text()).remove(u'\r').remove(u'\n'); }

    /// Selects what is in the element that a selector names.
    void select(const QString& selector) {
        const QString script =
            u"pondera.selection.select(null); getSelection().selectAllChildren(document.querySelector('%1')); 1"_s;
        evaluate(web_page(), script.arg(selector), QWebEngineScript::ApplicationWorld);
    }

    /// Runs Link on the words of a page that is a paragraph "one".
    void link_words(const ScriptedPrompts::Filler& fill) {
        show_page(u"<p>one</p>"_s);
        select(u"p"_s);
        link(fill);
    }

    /// Runs Link on what is selected.
    void link(const ScriptedPrompts::Filler& fill) { run_form(u"Rendi_inter"_s, u"frm_collegamento"_s, fill); }
};

static QString linked(const QString& address) {
    return u"<P><A href=\"%1\">one</A></P>"_s.arg(address);
}

TEST_F(LinkCommands, LinkToAPageIsOneStepAndOpensWhereItLeads) {
    link_words([](const FormHand& form) {
        form.photograph(u"link_page"_s).choose(u"list"_s, u"Map  ;  [popup]"_s).click(u"OKButton"_s);
    });
    EXPECT_EQ(body(), linked(u"_x_Map.htm"_s));
    ASSERT_TRUE(editor().execute(EditCommand::kUndo));
    EXPECT_EQ(body(), u"<P>one</P>"_s);

    show_page(linked(u"index.htm#hours"_s));
    select(u"a"_s);
    link([](const FormHand& form) { form.photograph(u"link_change"_s).click(u"OKButton"_s); });
    EXPECT_EQ(body(), linked(u"index.htm#hours"_s)) << "the same page keeps its anchor";
    link([](const FormHand& form) { form.type(u"txtFilter"_s, u"trips"_s).press(Qt::Key_Return); });
    EXPECT_EQ(body(), linked(u"_4_Trips.htm"_s));
    link([](const FormHand& form) { form.click(u"remove_link"_s); });
    EXPECT_EQ(body(), u"<P>one</P>"_s);
}

TEST_F(LinkCommands, LinkToAnAddressIsCompletedOrRefused) {
    link_words([&](const FormHand& form) {
        prompts_.expect_message(u"cannot run a script"_s);
        form.click(u"link_to_address"_s);
        form.type(u"txtAddress"_s, u"javascript:x()"_s).click(u"OKButton"_s);
        form.type(u"txtAddress"_s, u"www.example.org"_s).press(Qt::Key_Return);
    });
    EXPECT_EQ(body(), linked(u"https://www.example.org"_s));
}

TEST_F(LinkCommands, LinkToAFileOfThisComputerBringsItIn) {
    const QString price_list = home_.filePath(u"Price list.pdf"_s);
    ASSERT_TRUE(write_file(price_list, "%PDF"));
    for (int twice = 0; twice < 2; ++twice) {
        link_words([&](const FormHand& form) {
            prompts_.expect_message(u"Choose the file"_s).expect_file(price_list);
            form.click(u"link_to_file"_s).click(u"OKButton"_s).click(u"choose_file"_s).click(u"OKButton"_s);
        });
        EXPECT_EQ(body(), linked(u"Price-list.pdf"_s));
    }
    EXPECT_EQ(prompts_.questions().last().start_folder, home_.path()) << "where the one before was";
    EXPECT_EQ(read_file(shop(u"Price-list.pdf"_s)), QByteArray("%PDF"));
}

TEST_F(LinkCommands, LinkToAPlaceOfThePage) {
    show_page(u"<h1>Trips</h1><p>one</p><p><a id=sea></a>By the sea</p>"_s);
    select(u"p"_s);
    link([&](const FormHand& form) {
        prompts_.expect_message(u"Select a place of the page."_s);
        form.click(u"link_to_place"_s).click(u"OKButton"_s).photograph(u"link_place"_s);
        EXPECT_EQ(form.entries(u"places"_s).join(u'|'), u"Trips|sea  ;  [By the sea]"_s);
        form.double_click(u"places"_s, u"Trips"_s);
    });
    EXPECT_THAT(body(), Holds(u"<H1 id=Trips>Trips</H1>"_s + linked(u"#Trips"_s)));
    link([](const FormHand& form) {
        EXPECT_EQ(form.widget<QListWidget>(u"places"_s).currentRow(), 0);
        form.choose(u"places"_s, u"sea  ;  [By the sea]"_s).click(u"OKButton"_s);
    });
    EXPECT_THAT(body(), Holds(linked(u"#sea"_s)));
}

TEST_F(LinkCommands, LinkSaysWhyNotAndTheTreeLinksByTheSameRules) {
    show_page(u"<p>one <a href=\"javascript:esempio('_x_Map.htm');\">map</a></p>"_s);
    prompts_.expect_message(u"Select the words or the picture"_s);
    run(u"Rendi_inter"_s);
    const QString refusal = u"It is not possible to change the link already existing.\nDelete the link to popup"_s;
    for (const QString& place : {u"a"_s, u"p"_s}) {
        select(place);
        prompts_.expect_message(refusal).expect_message(refusal);
        choose(u"Rendi_inter"_s);
        link_selection_to(workbench(), u"index.htm"_s);
    }
    show_page(u"<p>one</p>"_s);
    select(u"p"_s);
    link_selection_to(workbench(), u"_4_Trips.htm"_s);
    EXPECT_EQ(body(), linked(u"_4_Trips.htm"_s));
    run(u"mnu_unlink"_s);
    EXPECT_EQ(body(), u"<P>one</P>"_s);
}

TEST_F(LinkCommands, AnchorsAreNamedChangedAndRemoved) {
    show_page(u"<h1>Trips <a id=top></a></h1><p>By the sea</p>"_s);
    select(u"p"_s);
    const auto name = [&](const auto& fill) { run_form(u"mnu_ins_ancora"_s, u"frm_ancora"_s, fill); };
    name([&](const FormHand& form) {
        EXPECT_EQ(form.widget<QLineEdit>(u"txtName"_s).text(), u"By-the-sea"_s);
        EXPECT_EQ(form.form().findChild<QPushButton*>(u"remove_anchor"_s), nullptr);
        prompts_.expect_message(u"already has a place named TOP"_s);
        form.type(u"txtName"_s, u"TOP"_s).click(u"OKButton"_s).type(u"txtName"_s, u"sea"_s).press(Qt::Key_Return);
    });
    EXPECT_THAT(body(), Holds(u"<P><A id=sea>By the sea</A></P>"_s));
    name([](const FormHand& form) { form.type(u"txtName"_s, u"beach"_s).click(u"OKButton"_s); });
    EXPECT_TRUE(body().endsWith(u"<P><A id=beach>By the sea</A></P>"_s));
    name([](const FormHand& form) { form.click(u"remove_anchor"_s); });
    EXPECT_TRUE(body().endsWith(u"<P>By the sea</P>"_s));
}

TEST_F(LinkCommands, BrokenLinksAreListedAndShownOnTheirPages) {
    write(u"Shop"_s, u"çindex.htm"_s,
          u"<p>x <a href=gone.htm>first</a> <a href=gone.htm>second</a> <img src=lost.gif></p>"_s);
    ASSERT_TRUE(write_file(shop(u"media/img/menu_items.js"_s), "['x', '_4_Closed.htm']"));
    show_page(u"<p>one</p>"_s);
    change_page();
    run_told(u"mnu_link_rotti"_s, u"has unsaved changes"_s, Answer::kCancel);
    const auto go_to_second = [&](const FormHand& form) {
        EXPECT_EQ(form.widget<QLabel>(u"count"_s).text(), u"4 addresses lead nowhere, of 4 links on 3 pages."_s);
        ASSERT_TRUE(write_file(shop(u"lost.gif"_s), "x"));
        form.click(u"check_again"_s);
        EXPECT_EQ(form.entries(u"broken_links"_s).join(u'|'), u"HOME PAGE|HOME PAGE|media/img/menu_items.js"_s);
        form.press(Qt::Key_Down).press(Qt::Key_Return);
    };
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kSave);
    run_form(u"mnu_link_rotti"_s, u"frm_link_rotti"_s, go_to_second);
    EXPECT_EQ(page(), u"index.htm"_s);
    EXPECT_EQ(editor().selection().text, u"second"_s);

    const QString file = u"media/img/menu_items.js"_s;
    run_form(u"mnu_link_rotti"_s, u"frm_link_rotti"_s,
             [&](const FormHand& form) { form.double_click(u"broken_links"_s, file); },
             {u"stands in the file "_s + file});
}

}  // namespace pondera
