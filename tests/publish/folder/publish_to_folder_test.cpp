#include <QtWidgets>

#include "tests/shell/window/window_fixture.h"
#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

class PublishToFolder : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        open(u"Shop"_s);
    }

    void publish(const ScriptedPrompts::Filler& fill) {
        run_form(u"mnu_pubblica_cartella"_s, u"Frm_Pubblica_Cartella"_s, fill);
    }

    /// Publishes to the folder that the form offers, and gives what it says then.
    QString publish_again(const QString& also_click = {}) {
        QString said;
        publish([&](const FormHand& form) {
            if (!also_click.isEmpty()) form.click(also_click);
            said = form.click(u"OKButton"_s).widget<QLabel>(u"lblProgress"_s).text();
            form.click(u"CancelButton"_s);
        });
        return said;
    }

    TestFolder stick_;
};

TEST_F(PublishToFolder, FirstEverythingThenWhatChanged) {
    change_page(u"my words"_s);
    publish([&](const FormHand& form) {
        prompts_.expect_message(u"Choose the folder to publish to."_s);
        form.click(u"OKButton"_s);
        prompts_.expect_message(u"outside of the folder of your Websites"_s);
        form.type(u"txtPath"_s, roots_.websites()).click(u"OKButton"_s);
        prompts_.expect_folder(stick_.path());
        form.click(u"cmdBrowse"_s);
        form.click(u"OKButton"_s).photograph(u"Frm_Pubblica_Cartella_done"_s);
        EXPECT_EQ(form.widget<QLabel>(u"lblProgress"_s).text(), u"Done: 3 files written.");
        EXPECT_THAT(form.widget<QLabel>(u"lblLink"_s).text(), Holds(u"/Shop/index.htm"_s));
        form.click(u"CancelButton"_s);
    });
    EXPECT_FALSE(editor().modified());
    EXPECT_THAT(QString::fromUtf8(stick_.bytes(u"Shop/index.htm"_s)), Holds(u"my words"_s));
    EXPECT_EQ(publish_again(), u"Nothing to do: everything is there already.");

    ASSERT_TRUE(QFile::remove(shop(u"_x_Map.htm"_s)) && QFile::remove(shop(u"§_x_Map.htm"_s)));
    EXPECT_EQ(publish_again(u"chkRemove"_s), u"Nothing to do: everything is there already.");
    EXPECT_EQ(publish_again(), u"Done: 1 file removed.");
    EXPECT_EQ(publish_again(u"optWhole"_s), u"Done: 2 files written.");
}

TEST_F(PublishToFolder, WhatStandsInTheWayIsToldAndFilesThatLieThereAreAskedAboutOnce) {
    stick_.put(u"Shop"_s, "a file in the way");
    settings_.setValue(u"Publish/Folder of Shop"_s, stick_.path());
    prompts_.expect_form(u"Frm_Pubblica_Cartella"_s, [&](const FormHand& form) {
        prompts_.expect_message(u"The Website was not published.\n\n"_s);
        form.click(u"OKButton"_s);
        ASSERT_TRUE(QFile::remove(stick_.path(u"Shop"_s)));
        stick_.put(u"Shop/index.htm"_s, "somebody's");
        prompts_.expect_message(u"is not empty"_s, Answer::kNo);
        form.click(u"OKButton"_s);
        EXPECT_EQ(text_of_folder(stick_.path()), u"Shop/index.htm=somebody's");
        prompts_.expect_message(u"is not empty"_s, Answer::kYes);
        form.click(u"OKButton"_s).click(u"OKButton"_s).press(Qt::Key_Escape);
    });
    run(u"mnu_pubblica_cartella"_s);
    EXPECT_EQ(publish_again(), u"Nothing to do: everything is there already.");
}

TEST_F(PublishToFolder, CancelStopsAndTheNextTimeGoesOn) {
    settings_.setValue(u"Publish/Folder of Shop"_s, stick_.path());
    publish([&](const FormHand& form) {
        auto* bar = &form.widget<QProgressBar>(u"ProgressBar1"_s);
        QObject::connect(bar, &QProgressBar::valueChanged, [&] {
            if (QFile::exists(stick_.path(u"Shop/_4_Trips.htm"_s))) form.form().reject();
        });
        form.click(u"OKButton"_s).photograph(u"Frm_Pubblica_Cartella_cancelled"_s);
        EXPECT_THAT(form.widget<QLabel>(u"lblProgress"_s).text(), Holds(u"Cancelled after "_s));
        bar->disconnect();
        EXPECT_FALSE(QFile::exists(stick_.path(u"Shop/index.htm"_s)));
        form.click(u"OKButton"_s).click(u"CancelButton"_s);
    });
    EXPECT_TRUE(QFile::exists(stick_.path(u"Shop/index.htm"_s)));
}

}  // namespace pondera
