#include "shell/website/website_commands.h"

#include <QtWidgets>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"
#include "shell/main_form.h"
#include "shell/website/recent_websites.h"
#include "site/first_start.h"
#include "site/website_listing.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The main window on folders of its own, with the files that the program ships.
class WebsiteCommands : public testing::Test {
  protected:
    void SetUp() override {
        settings_.clear();
        ASSERT_TRUE(install_shipped_files(QStringLiteral(PONDERA_SOURCE_DIR "/system"), roots_));
        window_.emplace(roots_, person_, settings_);
        window_->show();
    }

    void have_website(const QString& name) {
        ASSERT_TRUE(create_folders(roots_.website(name)));
        ASSERT_TRUE(write_file(roots_.website(name) + u"/çindex.htm"_s, "<HTML><BODY>x</BODY></HTML>"));
    }

    void choose(const QString& command) { window_->findChild<QAction*>(command)->trigger(); }

    QTemporaryDir base_;
    Roots roots_{base_.path()};
    QSettings settings_;
    ScriptedPrompts person_;
    std::optional<MainForm> window_;
};

TEST_F(WebsiteCommands, NewWebsiteIsMadeFromTheChosenModelAndOpened) {
    person_
        .expect_form(u"Frm_Nuovo"_s,
                     [](const FormHand& form) {
                         EXPECT_EQ(form.form().windowTitle(), u"New Website"_s);
                         form.photograph(u"frm_nuovo"_s);
                         form.click(u"HelpButton"_s);
                         form.click(u"OKButton"_s);
                         form.type(u"txtName"_s, u"My Shop"_s);
                         form.click(u"OKButton"_s);
                         form.type(u"txtName"_s, u"Shop"_s);
                         form.press(Qt::Key_Return);
                     })
        .expect_message(u"help viewer"_s)
        .expect_message(u"Choose a name with at least 3 characters and maximum 63"_s)
        .expect_message(u"or Cancel the space after the name"_s)
        .expect_form(u"Frm_Selezione_Iniziale"_s,
                     [](const FormHand& form) {
                         EXPECT_EQ(form.entries(u"list"_s), QStringList({u"Interfaccia Standard_Interface"_s,
                                                                         u"Interfaccia Store_Interface"_s}));
                         form.click(u"OKButton"_s);
                         form.choose(u"list"_s, u"Interfaccia Store_Interface"_s);
                         form.photograph(u"frm_selezione_iniziale"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_message(u"Select a model."_s)
        .expect_form(u"Frm_Selezione_Iniziale1"_s,
                     [](const FormHand& form) {
                         form.click(u"OKButton"_s);
                         form.photograph(u"frm_selezione_iniziale1"_s);
                         form.double_click(u"list"_s, u"Card 2"_s);
                     })
        .expect_message(u"Choose il tipo di scheda desiderato!"_s);
    choose(u"Crea_Website"_s);
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO - Shop"_s);
    EXPECT_EQ(window_->workbench().page(), u"index.htm"_s);
    EXPECT_EQ(list_websites(roots_), QStringList(u"Shop"_s));
    const QString text = window_->workbench().editor().text();
    EXPECT_TRUE(text.contains(u"<TITLE>Shop - Home Page</TITLE>"_s)) << text.first(400).toStdString();
    EXPECT_TRUE(text.contains(u"Name of the article"_s));
}

TEST_F(WebsiteCommands, NewWebsiteLeftHalfWayLeavesNothing) {
    const auto name_it = [](const FormHand& form) {
        form.type(u"txtName"_s, u"Shop"_s);
        form.click(u"OKButton"_s);
    };
    const auto leave = [](const FormHand& form) { form.press(Qt::Key_Escape); };
    const auto take_model = [](const FormHand& form) {
        form.double_click(u"list"_s, u"Interfaccia Store_Interface"_s);
    };
    person_.expect_form(u"Frm_Nuovo"_s, leave);
    choose(u"Crea_Website"_s);
    person_.expect_form(u"Frm_Nuovo"_s, name_it).expect_form(u"Frm_Selezione_Iniziale"_s, leave);
    choose(u"Crea_Website"_s);
    person_.expect_form(u"Frm_Nuovo"_s, name_it)
        .expect_form(u"Frm_Selezione_Iniziale"_s, take_model)
        .expect_form(u"Frm_Selezione_Iniziale1"_s, leave);
    choose(u"Crea_Website"_s);
    EXPECT_FALSE(QFileInfo::exists(roots_.website(u"Shop"_s)));
    EXPECT_EQ(window_->workbench().website(), QString());

    have_website(u"Shop"_s);
    person_.expect_form(u"Frm_Nuovo"_s, name_it).expect_message(u"Name of the Website already used!"_s);
    choose(u"Crea_Website"_s);
}

TEST_F(WebsiteCommands, OpenWebsiteByMouseAndKeys) {
    have_website(u"Shop"_s);
    have_website(u"Art"_s);
    person_
        .expect_form(u"Frm_Apri_nuovo"_s,
                     [](const FormHand& form) {
                         EXPECT_EQ(form.entries(u"list"_s), QStringList({u"Art"_s, u"Shop"_s}));
                         form.click(u"OKButton"_s);
                         form.choose(u"list"_s, u"Shop"_s);
                         form.photograph(u"frm_apri_nuovo"_s);
                         form.press(Qt::Key_Up);
                         form.press(Qt::Key_Return);
                     })
        .expect_message(u"Select a Progect!"_s);
    choose(u"Apri_Website"_s);
    EXPECT_EQ(window_->workbench().website(), u"Art"_s);

    person_.expect_form(u"Frm_Apri_nuovo"_s, [](const FormHand& form) { form.double_click(u"list"_s, u"Shop"_s); });
    choose(u"Apri_Website"_s);
    EXPECT_EQ(window_->workbench().website(), u"Shop"_s);
    EXPECT_EQ(recent_websites(settings_, roots_), QStringList({u"Shop"_s, u"Art"_s}));
}

TEST_F(WebsiteCommands, FormsFitASmallScreenAtAnyModelCount) {
    for (int n = 0; n < 12; ++n)
        for (const int card : {1, 2})
            ASSERT_TRUE(write_file(
                roots_.system_folder() + u"/Model-with-a-rather-long-name-%1_§_%2_card.htm"_s.arg(n).arg(card), "x"));
    const auto measure = [](const FormHand& form) {
        EXPECT_LE(form.form().frameGeometry().width(), 1024);
        EXPECT_LE(form.form().frameGeometry().height(), 700);
        form.photograph(u"many_models"_s);
        form.click(u"CancelButton"_s);
    };
    person_
        .expect_form(u"Frm_Nuovo"_s,
                     [](const FormHand& form) {
                         form.type(u"txtName"_s, u"Shop"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_form(u"Frm_Selezione_Iniziale"_s, measure);
    choose(u"Crea_Website"_s);
    person_.expect_form(u"Frm_Apri_nuovo"_s, [](const FormHand& form) {
        EXPECT_TRUE(form.widget<QLabel>(u"about"_s).text().contains(u"no Website yet"_s));
        form.click(u"CancelButton"_s);
    });
    choose(u"Apri_Website"_s);
}

TEST_F(WebsiteCommands, RecentWebsitesAreEightThatStillExist) {
    for (int n = 1; n <= 12; ++n) {
        if (n != 11) have_website(u"Web%1"_s.arg(n));
        remember_website(settings_, u"Web%1"_s.arg(n));
    }
    remember_website(settings_, u"Web8"_s);
    EXPECT_EQ(recent_websites(settings_, roots_).join(u' '), u"Web8 Web12 Web10 Web9 Web7 Web6 Web5"_s);
}

}  // namespace

}  // namespace pondera
