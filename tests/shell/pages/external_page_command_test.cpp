#include <QImage>

#include "base/files.h"
#include "base/text_file.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// A page as browsers save it, with its folder beside it.
const QByteArray kSavedPage = R"page(<!DOCTYPE html>
<!-- saved from url=(0026)https://travel.example/sea -->
<html lang="en"><head><meta http-equiv="Content-Type" content="text/html; charset=UTF-8">
<!--<base href="https://travel.example/">--><base href=".">
<title>By the sea</title>
<link rel="stylesheet" href="./By%20the%20sea_files/css2" integrity="sha384-x" crossorigin="anonymous">
<link rel="preconnect" href="https://fonts.example/">
<style>.quote::before { content: "\201C"; } body { color: rgb(1, 2, 3); }</style>
<script>document.documentElement.className = /^\w+$/.test("yes") ? "works" : "broken";</script>
<script src="./By%20the%20sea_files/code.js.download"></script>
</head>
<body background="./By%20the%20sea_files/back%20ground.png">
<h1 class="quote">Caff&egrave; e façade §</h1>
<img id="wide" src="./By%20the%20sea_files/wave.png" srcset="./By%20the%20sea_files/wave.png 1x, ./By%20the%20sea_files/wave%402x.png 2x">
<div id="box" style="width: 40px; height: 30px; background-image: url(&quot;./By%20the%20sea_files/dot.png&quot;)"></div>
<p><a href="By%20the%20sea.html#box">down</a> <a href="other.html">other</a> <a href="https://travel.example/">home</a></p>
<img src="./By%20the%20sea_files/gone.png" alt="gone"><img src="../secret.png" alt="secret">
</body></html>
)page";

class ExternalPageCommand : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        const QString files = home_.filePath(u"Net/By the sea_files"_s);
        ASSERT_TRUE(QDir().mkpath(files));
        for (const auto& [name, width] : {std::pair{u"wave.png"_s, 120}, std::pair{u"wave@2x.png"_s, 240},
                                          std::pair{u"back ground.png"_s, 16}, std::pair{u"dot.png"_s, 8}}) {
            QImage picture(width, width, QImage::Format_RGB32);
            picture.fill(QColor(0xd3, 0xe3, 0xf2));
            ASSERT_TRUE(picture.save(files + u'/' + name));
        }
        ASSERT_TRUE(write_file(files + u"/css2"_s, "h1 { letter-spacing: 7px; background: url(dot.png) }"));
        ASSERT_TRUE(write_file(files + u"/code.js.download"_s, "window.brought = 'brou' + 'ght';"));
        ASSERT_TRUE(write_file(home_.filePath(u"secret.png"_s), "secret"));
        open(u"Shop"_s);
    }

    /// Chooses the command and a file with these bytes.
    void choose_file(const QByteArray& bytes, const QString& file = u"Net/By the sea.html"_s) {
        ASSERT_TRUE(write_file(home_.filePath(file), bytes));
        prompts_.expect_file(home_.filePath(file));
    }

    QStringList files_of_website() { return QDir(roots_.website(u"Shop"_s)).entryList(QDir::Files, QDir::Name); }
};

TEST_F(ExternalPageCommand, ASavedPageBecomesAPageThatWorksAndStaysWhole) {
    choose_file(kSavedPage);
    prompts_
        .expect_form(u"Frm_Nuova_Scheda"_s,
                     [&](const FormHand& form) {
                         EXPECT_EQ(form.form().windowTitle(), u"External Web Page");
                         EXPECT_EQ(form.widget<QLineEdit>(u"txtName"_s).text(), u"By-the-sea");
                         form.photograph(u"external-page"_s).type(u"txtName"_s, u"Trips"_s).click(u"OKButton"_s);
                         form.type(u"txtName"_s, u"Seaside"_s).click(u"OKButton"_s);
                     })
        .expect_message(u"the name of other pages of the Website"_s)
        .expect_message(
            u"are too many:\n./By%20the%20sea_files/gone.png\n../secret.png\n\nLinks to other pages and "
            "files on this computer stay as they are and lead nowhere in the Website:\nother.html"_s);
    ASSERT_TRUE(choose(u"mnu_pag_esterna"_s));
    EXPECT_EQ(page(), u"_y_Seaside.htm");
    EXPECT_FALSE(workbench().editor().modified());

    const QStringList media = QDir(roots_.website(u"Shop"_s) + u"/media/img"_s).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(media.join(u' '), u"Seaside.css Seaside.js back-ground.png code.js css2.css dot.png wave.png wave2x.png");
    const QString published = read(u"Shop"_s, u"_y_Seaside.htm"_s);
    for (const QString& part :
         {u"<!DOCTYPE html>"_s, u"href=\"media/img/css2.css\""_s, u"src=\"media/img/Seaside.js\""_s,
          u"background=media/img/back-ground.png"_s, u"srcset=\"media/img/wave.png 1x, media/img/wave2x.png 2x\""_s,
          u"url("_s, u"media/img/dot.png"_s, u"href=\"_y_Seaside.htm#box\""_s, u"&ccedil;ade &sect;"_s})
        EXPECT_TRUE(published.contains(part)) << part.toStdString() << published.toStdString();
    for (const QString& part : {u"integrity"_s, u"crossorigin"_s, u"By%20the"_s})
        EXPECT_EQ(published.count(part), part.startsWith(u"By") ? 1 : 0) << part.toStdString();

    change_page();
    ASSERT_TRUE(workbench().save());
    QString saved = read(u"Shop"_s, u"_y_Seaside.htm"_s).remove(u"<P>changed</P>"_s);
    EXPECT_EQ(saved.simplified().remove(u' '), QString(published).simplified().remove(u' '));
}

TEST_F(ExternalPageCommand, WhatIsNoPageIsRefusedAndLeavesNothing) {
    const QStringList before = files_of_website();
    const std::vector<std::pair<QByteArray, QString>> cases{
        {"<frameset cols=1><frame src=a.htm></frameset>", u"Error: the document contains a frameset!"_s},
        {"<?php echo date(); ?>", u"mainly a  'server side script'"_s},
        {QByteArray("GIF\0\0", 5), u"Error: the document is not a text!"_s},
        {QByteArray(33 << 20, 'x'), u"Error: the document is too large!"_s}};
    for (const auto& [bytes, message] : cases) {
        choose_file(bytes);
        prompts_.expect_message(message);
        choose(u"mnu_pag_esterna"_s);
    }
    prompts_.expect_file(home_.filePath(u"gone.htm"_s)).expect_message(u"Error: invalid path!"_s);
    choose(u"mnu_pag_esterna"_s);
    choose_file(kSavedPage);
    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, [](const FormHand& form) { form.press(Qt::Key_Escape); });
    choose(u"mnu_pag_esterna"_s);
    EXPECT_EQ(files_of_website(), before);
    EXPECT_EQ(page(), u"index.htm");
}

TEST_F(ExternalPageCommand, UnsavedChangesAreAskedAboutOnceAndFirst) {
    change_page();
    prompts_.expect_message(u"unsaved changes"_s, Answer::kCancel);
    choose(u"mnu_pag_esterna"_s);
    prompts_.expect_message(u"unsaved changes"_s, Answer::kDiscard);
    choose_file("<P>A plain page</P>");
    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, [](const FormHand& form) { form.click(u"OKButton"_s); });
    choose(u"mnu_pag_esterna"_s);
    EXPECT_EQ(page(), u"_y_By-the-sea.htm");
}

}  // namespace pondera
