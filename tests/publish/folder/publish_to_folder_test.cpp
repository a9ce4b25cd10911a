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
        form.photograph(u"Frm_Pubblica_Cartella_empty"_s);
        prompts_.expect_message(u"Choose the folder to publish to."_s);
        form.click(u"OKButton"_s);
        prompts_.expect_message(u"outside of the folder of your Websites"_s);
        form.type(u"txtPath"_s, roots_.websites()).click(u"OKButton"_s);
        prompts_.expect_folder(stick_.path());
        form.click(u"cmdBrowse"_s);
        EXPECT_EQ(form.widget<QLabel>(u"note"_s).text(), u"The Website will be in "_s + stick_.path(u"Shop"_s));
        form.click(u"OKButton"_s).photograph(u"Frm_Pubblica_Cartella_done"_s);
        EXPECT_EQ(form.widget<QLabel>(u"lblProgress"_s).text(), u"Done: 3 files written.");
        const QString link = form.widget<QLabel>(u"lblLink"_s).text();
        EXPECT_THAT(link, Holds(u"Click here to go to the Website: "_s));
        EXPECT_THAT(link, Holds(QUrl::fromLocalFile(stick_.path(u"Shop/index.htm"_s)).toString()));
        EXPECT_EQ(form.widget<QPushButton>(u"CancelButton"_s).text(), u"Close");
        form.click(u"CancelButton"_s);
    });
    EXPECT_FALSE(editor().modified());
    EXPECT_THAT(QString::fromUtf8(stick_.bytes(u"Shop/index.htm"_s)), Holds(u"my words"_s));
    EXPECT_EQ(publish_again(), u"Nothing to do: everything is there already.");

    write(u"Shop"_s, u"_4_Trips.htm"_s, u"<P>Trips to the hills</P>"_s);
    ASSERT_TRUE(QFile::remove(shop(u"_x_Map.htm"_s)) && QFile::remove(shop(u"§_x_Map.htm"_s)));
    EXPECT_EQ(publish_again(u"chkRemove"_s), u"Done: 1 file written.");
    EXPECT_EQ(publish_again(), u"Done: 1 file removed.");
    EXPECT_THAT(QString::fromUtf8(stick_.bytes(u"Shop/_4_Trips.htm"_s)), Holds(u"hills"_s));
    EXPECT_EQ(publish_again(u"optWhole"_s), u"Done: 2 files written.");
}

TEST_F(PublishToFolder, WhatStandsInTheWayIsToldAndFilesThatLieThereAreAskedAboutOnce) {
    stick_.put(u"Shop"_s, "a file in the way");
    settings_.setValue(u"Publish/Folder of Shop"_s, stick_.path());
    prompts_.expect_form(u"Frm_Pubblica_Cartella"_s, [&](const FormHand& form) {
        prompts_.expect_message(u"The Website was not published.\n\n"_s);
        form.click(u"OKButton"_s);
        EXPECT_TRUE(form.widget<QPushButton>(u"OKButton"_s).hasFocus());
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
        const auto* bar = &form.widget<QProgressBar>(u"ProgressBar1"_s);
        const auto stopping = QObject::connect(bar, &QProgressBar::valueChanged, &form.form(), [&] {
            if (QFile::exists(stick_.path(u"Shop/_4_Trips.htm"_s)))
                form.photograph(u"Frm_Pubblica_Cartella_running"_s).form().reject();
        });
        form.click(u"OKButton"_s).photograph(u"Frm_Pubblica_Cartella_cancelled"_s);
        EXPECT_EQ(form.widget<QLabel>(u"lblProgress"_s).text().section(u" after "_s, 0, 0), u"Cancelled");
        EXPECT_FALSE(QFile::exists(stick_.path(u"Shop/index.htm"_s)));
        QObject::disconnect(stopping);
        form.click(u"OKButton"_s);
        EXPECT_TRUE(QFile::exists(stick_.path(u"Shop/index.htm"_s)));
        form.click(u"CancelButton"_s);
    });
}

}  // namespace pondera
