#include "shell/website/website_commands.h"

#include "shell/website/recent_websites.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The main window with the models that the program ships.
class WebsiteCommands : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        have_shipped_files();
    }
};

/// Fills the form that asks for the new Website's name.
static ScriptedPrompts::Filler name_it(const QString& name) {
    return [name](const FormHand& form) { form.type(u"txtName"_s, name).click(u"OKButton"_s); };
}

TEST_F(WebsiteCommands, NewWebsiteIsMadeFromTheChosenModelAndOpened) {
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
    prompts_.expect_form(u"Frm_Nuovo"_s, refused_names)
        .expect_message(u"help viewer"_s)
        .expect_message(u"Choose a name with at least 3 characters and maximum 63"_s)
        .expect_message(u"or Cancel the space after the name"_s)
        .expect_form(u"Frm_Selezione_Iniziale"_s, model)
        .expect_message(u"Select a model."_s)
        .expect_form(u"Frm_Selezione_Iniziale1"_s, card)
        .expect_message(u"Choose il tipo di scheda desiderato!"_s);
    choose(u"Crea_Website"_s);
    EXPECT_EQ(workbench().website() + u'/' + page(), u"Bakery/index.htm");
    const QString text = editor().text();
    EXPECT_TRUE(text.contains(u"<TITLE>Bakery - Home Page</TITLE>"_s)) << text.left(400).toStdString();
    EXPECT_TRUE(text.contains(u"Name of the article"_s));
}

TEST_F(WebsiteCommands, NewWebsiteLeftHalfWayLeavesNothing) {
    const auto take_model = [](const FormHand& form) {
        form.double_click(u"list"_s, u"Interfaccia Store_Interface"_s);
    };
    const auto leave = [](const FormHand& form) { form.press(Qt::Key_Escape); };
    prompts_.expect_form(u"Frm_Nuovo"_s, name_it(u"Bakery"_s))
        .expect_form(u"Frm_Selezione_Iniziale"_s, take_model)
        .expect_form(u"Frm_Selezione_Iniziale1"_s, leave);
    choose(u"Crea_Website"_s);
    EXPECT_FALSE(QFileInfo::exists(roots_.website(u"Bakery"_s)));
    EXPECT_EQ(workbench().website(), u"");
    prompts_.expect_form(u"Frm_Nuovo"_s, name_it(u"Shop"_s)).expect_message(u"Name of the Website already used!"_s);
    choose(u"Crea_Website"_s);
}

TEST_F(WebsiteCommands, OpenWebsiteByMouseAndKeys) {
    const auto by_keys = [](const FormHand& form) {
        EXPECT_EQ(form.entries(u"list"_s).join(u'|'), u"Empty|Shop");
        form.click(u"OKButton"_s).choose(u"list"_s, u"Shop"_s).press(Qt::Key_Up).press(Qt::Key_Return);
    };
    prompts_.expect_form(u"Frm_Apri_nuovo"_s, by_keys).expect_message(u"Select a Progect!"_s);
    choose(u"Apri_Website"_s);
    EXPECT_EQ(workbench().website(), u"Empty");
    prompts_.expect_form(u"Frm_Apri_nuovo"_s, [](const FormHand& form) { form.double_click(u"list"_s, u"Shop"_s); });
    choose(u"Apri_Website"_s);
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
