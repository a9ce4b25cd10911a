#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// A page as browsers save it, with its folder beside it.
const QByteArray kSavedPage = R"page(<!DOCTYPE html>
<html><head><meta charset=UTF-8><base href="."><title>By the sea</title>
<script>document.documentElement.className = /^\w+$/.test("yes") ? "works" : "broken";</script></head>
<body><h1>Caff&egrave; e façade §</h1><img src="./By%20the%20sea_files/wave.png">
<a href="By%20the%20sea.html#box">down</a> <a href="other.html">other</a>
<img src="./By%20the%20sea_files/gone.png"><img src="../secret.png">
</body></html>
)page";

class ExternalPageCommand : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        std::ignore = make_picture(u"Net/By the sea_files/wave.png"_s, {120, 120});
        ASSERT_TRUE(write_file(home_.filePath(u"secret.png"_s), "secret"));
        open(u"Shop"_s);
    }

    /// Chooses the command and a file with these bytes.
    void choose_file(const QByteArray& bytes, const QString& file = u"Net/By the sea.html"_s) {
        ASSERT_TRUE(write_file(home_.filePath(file), bytes));
        prompts_.expect_file(home_.filePath(file));
    }

    QStringList files_of_website() { return QDir(shop()).entryList(QDir::Files, QDir::Name); }
};

TEST_F(ExternalPageCommand, ASavedPageBecomesAPageThatWorksAndStaysWhole) {
    change_page();
    run_told(u"mnu_pag_esterna"_s, u"unsaved changes"_s, Answer::kCancel);
    prompts_.expect_message(u"unsaved changes"_s, Answer::kDiscard);
    choose_file(kSavedPage);
    const auto name = [](const FormHand& form) {
        EXPECT_EQ(form.form().windowTitle(), u"External Web Page");
        EXPECT_EQ(form.widget<QLineEdit>(u"txtName"_s).text(), u"By-the-sea");
        form.type(u"txtName"_s, u"Trips"_s).click(u"OKButton"_s);
        form.type(u"txtName"_s, u"Seaside"_s).click(u"OKButton"_s);
    };
    run_form(u"mnu_pag_esterna"_s, u"Frm_Nuova_Scheda"_s, name,
             {u"the name of other pages of the Website"_s,
              u"are too many:\n./By%20the%20sea_files/gone.png\n../secret.png\n\nLinks to other pages and "
              "files on this computer stay as they are and lead nowhere in the Website:\nother.html"_s});
    EXPECT_EQ(page(), u"_y_Seaside.htm");
    EXPECT_FALSE(editor().modified());

    const QStringList media = QDir(shop(u"media/img"_s)).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(media.join(u' '), u"Seaside.js wave.png");
    const QString published = read(u"Shop"_s, u"_y_Seaside.htm"_s);
    for (const QString& part : {u"<!DOCTYPE html>"_s, u"src=\"media/img/Seaside.js\""_s, u"media/img/wave.png"_s,
                                u"href=\"_y_Seaside.htm#box\""_s, u"&ccedil;ade &sect;"_s})
        EXPECT_TRUE(published.contains(part)) << part.toStdString() << published.toStdString();
    EXPECT_EQ(published.count(u"By%20the"_s), 1) << "the picture that is gone";

    change_page();
    ASSERT_TRUE(workbench().save());
    QString saved = read(u"Shop"_s, u"_y_Seaside.htm"_s).remove(u"<P>changed</P>"_s);
    EXPECT_EQ(saved.simplified().remove(u' '), QString(published).simplified().remove(u' '));
}

TEST_F(ExternalPageCommand, WhatIsNoPageIsRefusedAndLeavesNothing) {
    const QStringList before = files_of_website();
    for (const auto& [bytes, message] :
         {std::pair<QByteArray, QString>{"<?php echo date(); ?>", u"mainly a  'server side script'"_s},
          {QByteArray(33 << 20, 'x'), u"Error: the document is too large!"_s}}) {
        choose_file(bytes);
        run_told(u"mnu_pag_esterna"_s, message);
    }
    prompts_.expect_file(home_.filePath(u"gone.htm"_s)).expect_message(u"Error: invalid path!"_s);
    choose(u"mnu_pag_esterna"_s);
    choose_file(kSavedPage);
    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, [](const FormHand& form) { form.press(Qt::Key_Escape); });
    choose(u"mnu_pag_esterna"_s);
    EXPECT_EQ(files_of_website(), before);
    EXPECT_EQ(page(), u"index.htm");
}

}  // namespace pondera
