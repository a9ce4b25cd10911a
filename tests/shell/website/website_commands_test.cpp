#include "shell/website/website_commands.h"

#include "shell/website/recent_websites.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

class WebsiteCommands : public WindowFixture {};

TEST_F(WebsiteCommands, NewWebsiteIsMadeFromTheChosenModelAndOpened) {
    have_shipped_files();
    const auto refused_names = [](const FormHand& form) {
        form.click(u"HelpButton"_s).click(u"OKButton"_s);
        form.type(u"txtName"_s, u"My Shop"_s).click(u"OKButton"_s);
        form.type(u"txtName"_s, u"Bakery"_s).press(Qt::Key_Return);
    };
    const auto model = [](const FormHand& form) {
        EXPECT_EQ(form.entries(u"list"_s).join(u'|'), u"Interfaccia Standard_Interface|Interfaccia Store_Interface");
        form.click(u"OKButton"_s).choose(u"list"_s, u"Interfaccia Store_Interface"_s).click(u"OKButton"_s);
    };
    const auto card = [](const FormHand& form) { form.click(u"OKButton"_s).double_click(u"list"_s, u"Card 2"_s); };
    prompts_
        .expect_form(u"Frm_Nuovo"_s, refused_names,
                     {u"help viewer"_s, u"Choose a name with at least 3 characters and maximum 63"_s,
                      u"or Cancel the space after the name"_s})
        .expect_form(u"Frm_Selezione_Iniziale"_s, model, {u"Select a model."_s})
        .expect_form(u"Frm_Selezione_Iniziale1"_s, card, {u"Choose il tipo di scheda desiderato!"_s});
    choose(u"Crea_Website"_s);
    EXPECT_EQ(workbench().website() + u'/' + page(), u"Bakery/index.htm");
    EXPECT_THAT(editor().text(),
                testing::AllOf(Holds(u"<TITLE>Bakery - Home Page</TITLE>"_s), Holds(u"Name of the article"_s)));
}

TEST_F(WebsiteCommands, NewWebsiteLeftHalfWayLeavesNothing) {
    have_shipped_files();
    const auto take = [](const FormHand& form) { form.double_click(u"list"_s, u"Interfaccia Store_Interface"_s); };
    const auto leave = [](const FormHand& form) { form.press(Qt::Key_Escape); };
    prompts_.expect_form(u"Frm_Nuovo"_s, type_names({u"Bakery"_s})).expect_form(u"Frm_Selezione_Iniziale"_s, take);
    run_form(u"Crea_Website"_s, u"Frm_Selezione_Iniziale1"_s, leave);
    EXPECT_FALSE(QFileInfo::exists(roots_.website(u"Bakery"_s)));
    EXPECT_EQ(workbench().website(), u"");
    run_form(u"Crea_Website"_s, u"Frm_Nuovo"_s, type_names({u"Shop"_s}), {u"Name of the Website already used!"_s});
}

TEST_F(WebsiteCommands, OpenWebsiteByMouseAndKeys) {
    const auto by_keys = [](const FormHand& form) {
        EXPECT_EQ(form.entries(u"list"_s).join(u'|'), u"Empty|Shop");
        form.click(u"OKButton"_s).choose(u"list"_s, u"Shop"_s).press(Qt::Key_Up).press(Qt::Key_Return);
    };
    run_form(u"Apri_Website"_s, u"Frm_Apri_nuovo"_s, by_keys, {u"Select a Progect!"_s});
    EXPECT_EQ(workbench().website(), u"Empty");
    run_form(u"Apri_Website"_s, u"Frm_Apri_nuovo"_s,
             [](const FormHand& form) { form.double_click(u"list"_s, u"Shop"_s); });
    EXPECT_EQ(workbench().website(), u"Shop");
    EXPECT_EQ(recent_websites(settings_, roots_).join(u' '), u"Shop Empty");
}

TEST_F(WebsiteCommands, RecentWebsitesAreEightThatStillExist) {
    for (int n = 1; n <= 12; ++n) {
        const QString name = u"Web%1"_s.arg(n);
        if (n != 11) have_website(name);
        remember_website(settings_, name);
    }
    remember_website(settings_, u"Web8"_s);
    EXPECT_EQ(recent_websites(settings_, roots_).join(u' '), u"Web8 Web12 Web10 Web9 Web7 Web6 Web5"_s);
}

}  // namespace pondera
