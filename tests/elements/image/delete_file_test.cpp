#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The Website "Shop" with pictures: "used.png" on its home page, "unsaved.png" on the page in the editor, two unused.
class DeleteFile : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        write(u"Shop"_s, u"çindex.htm"_s, u"<P><img src=media/img/used.png></P>"_s);
        for (const QString& file : {u"used.png"_s, u"unsaved.png"_s, u"one.png"_s, u"two.png"_s, u"print.gif"_s})
            std::ignore = make_picture(path(file), {320, 240});
        open(u"Shop"_s);
        change_page(u"<img src=media/img/unsaved.png>"_s);
    }

    [[nodiscard]] QString path(const QString& file) const { return shop(u"media/img/"_s + file); }

    void delete_files(const auto& fill) { run_form(u"mnu_cancella_file"_s, u"Frm_Cancella_Imm"_s, fill); }

    static QString users(const FormHand& hand) { return hand.widget<QLabel>(u"users"_s).text(); }
};

TEST_F(DeleteFile, FilesAreDeletedOneAfterTheOtherAfterAQuestion) {
    delete_files([&](const FormHand& hand) {
        EXPECT_EQ(hand.entries(u"list"_s).join(u' '), u"one.png two.png unsaved.png used.png"_s);
        prompts_.expect_message(u"Insert all required data"_s);
        hand.click(u"OKButton"_s).choose(u"list"_s, u"unsaved.png"_s);
        EXPECT_EQ(users(hand), u"Still used by: HOME PAGE."_s);
        EXPECT_TRUE(hand.widget<QLabel>(u"file"_s).text().endsWith(u", 320 × 240 pixels"_s));
        const QString sure = u"Are you sure you want to definitely delete %1 ?\nThe deletion will be IRREVERSIBLE!"_s;
        prompts_.expect_message(sure.arg(u"unsaved.png"_s), Answer::kNo);
        hand.click(u"OKButton"_s).choose(u"list"_s, u"one.png"_s);
        EXPECT_EQ(users(hand), u"Not used in the Website."_s);
        prompts_.expect_message(sure.arg(u"one.png"_s), Answer::kYes).expect_message(u"File successfully deleted."_s);
        hand.click(u"OKButton"_s);
        EXPECT_EQ(hand.entries(u"list"_s).join(u' '), u"two.png unsaved.png used.png"_s);
        hand.click(u"CancelButton"_s);
    });
    EXPECT_TRUE(!QFileInfo::exists(path(u"one.png"_s)) && QFileInfo::exists(path(u"unsaved.png"_s)));
}

TEST_F(DeleteFile, TheUnusedOnesCanBeDeletedTogether) {
    delete_files([&](const FormHand& hand) {
        hand.click(u"unused_only"_s);
        EXPECT_EQ(hand.entries(u"list"_s).join(u' '), u"one.png two.png"_s);
        hand.widget<QListWidget>(u"list"_s).selectAll();
        prompts_.expect_message(u"definitely delete these 2 files ?"_s, Answer::kYes)
            .expect_message(u"2 files successfully deleted."_s);
        hand.click(u"OKButton"_s).click(u"CancelButton"_s);
    });
    EXPECT_FALSE(QFileInfo::exists(path(u"one.png"_s)) || QFileInfo::exists(path(u"two.png"_s)));
}

TEST_F(DeleteFile, WhatIsPickedMustBeAFileThatMayGo) {
    const QString document = shop(u"Price list.pdf"_s);
    QFile(document).open(QIODevice::WriteOnly);
    delete_files([&](const FormHand& hand) {
        const auto pick = [&](const QString& file, const QString& message, Answer answer = Answer::kOk) {
            prompts_.expect_file(file).expect_message(message, answer);
            hand.click(u"choose_file"_s).click(u"OKButton"_s);
        };
        pick(path(u"print.gif"_s), u"You cannot cancel a system file."_s);
        hand.click(u"option_any"_s);
        EXPECT_EQ(hand.entries(u"list"_s).last(), u"Price list.pdf"_s);
        pick(roots_.website(u"Empty"_s) + u"/index.htm"_s, u"Select an image of the current Website."_s);
        pick(shop(u"_4_Trips.htm"_s), u"Delete it with Delete Page."_s);
        pick(document, u"definitely delete Price list.pdf ?"_s, Answer::kNo);
        hand.photograph(u"delete-any-file"_s).click(u"CancelButton"_s);
    });
    EXPECT_EQ(prompts_.questions().first().title, u"Selct Image");
    EXPECT_EQ(prompts_.questions().last().title, u"Delete File");
}

}  // namespace pondera
