#include <QTest>
#include <QWebEngineView>
#include <QtWidgets>

#include <gmock/gmock.h>

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/frm_splash.h"
#include "shell/frm_wizard.h"
#include "site/first_start.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {

using testing::HasSubstr;

TEST_F(Tour, FromTheFirstStartToAPageInTheBrowser) {
    for (const char* shipped : {PONDERA_SOURCE_DIR "/system", PONDERA_PLAYER_DIR})
        ASSERT_TRUE(install_shipped_files(QString::fromUtf8(shipped), roots_)) << shipped;

    int starts = 0;
    {
        frmSplash splash([&starts] { ++starts; });
        splash.show();
        ASSERT_TRUE(wait_until([&splash] { return !splash.isVisible(); }));
        EXPECT_EQ(splash.windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor"_s);
        QTest::qWait(1000);
        EXPECT_EQ(starts, 1) << "its timer goes off once";
        photograph(splash, u"splash"_s);
    }

    ASSERT_NO_FATAL_FAILURE(open_window());
    photograph(*window_, u"start"_s);

    show_wizard(window_->workbench());
    auto* wizard = window_->findChild<frmWizard*>();
    ASSERT_NE(wizard, nullptr);
    photograph(*wizard, u"wizard"_s);

    prompts_
        .expect_form(u"Frm_Nuovo"_s,
                     [this](const FormHand& form) {
                         form.type(u"txtName"_s, u"Lighthouse"_s);
                         photograph(form.form(), u"new-website-name"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_form(u"Frm_Selezione_Iniziale"_s,
                     [this](const FormHand& form) {
                         form.choose(u"list"_s, u"Interfaccia Standard_Interface"_s);
                         photograph(form.form(), u"new-website-model"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_form(u"Frm_Selezione_Iniziale1"_s, [this](const FormHand& form) {
            form.choose(u"list"_s, form.entries(u"list"_s).constFirst());
            photograph(form.form(), u"new-website-first-page"_s);
            form.click(u"OKButton"_s);
        });
    QTest::mouseClick(wizard->findChild<QPushButton*>(u"cmd_create"_s), Qt::LeftButton);
    wizard->close();
    ASSERT_EQ(window_->workbench().website(), u"Lighthouse"_s);
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO - Lighthouse"_s);
    photograph(*window_, u"home-page"_s);

    editor_->view()->setFocus();
    select_paragraph(u"h1"_s);
    type(u"The lighthouse is open"_s);
    select_paragraph(u"h1 + p"_s);
    type(u"Come up on Sundays, the view is free."_s);
    QTest::keyClick(&page(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&page(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::qWait(100);
    trigger(u"Bold"_s);
    const QString body = editor_->text().section(u"<BODY"_s, 1);
    EXPECT_TRUE(body.contains(
        u"<H1>The lighthouse is open</H1>\n<P class=lead>Come up on Sundays, the view is <B>free.</B></P>"_s))
        << qPrintable(body.left(2000));
    photograph(*window_, u"typed-and-formatted"_s);

    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [this](const FormHand& form) {
        form.type(u"picture_path"_s, QDir(roots_.graphics_library()).filePath(u"Sea.jpg"_s));
        photograph(form.form(), u"insert-image"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"immagine"_s);
    const Selection inserted = editor_->selection();
    ASSERT_TRUE(inserted.element);
    EXPECT_EQ(inserted.element->box.topLeft(), QPoint(10, 10));
    const QString picture = u"img[name='%1']"_s.arg(inserted.element->name);
    photograph(*window_, u"image-inserted"_s);

    prompts_.expect_form(u"Frm_Ridim_Imm"_s, [this](const FormHand& form) {
        form.type(u"txtLarghezza"_s, u"320"_s);
        form.type(u"txtAltezza"_s, u"200"_s);
        photograph(form.form(), u"image-size"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"mnu_dim_imm"_s);
    ASSERT_EQ(editor_->selection().element->box.size(), QSize(320, 200));

    // To a place where it snaps: the right edge and the top of the large picture of the page.
    const QRect large = box_of(u"img.wide"_s), small = box_of(picture);
    const QPoint from = small.center();
    const QPoint to = from + QPoint(large.right() - small.right() + 3, large.top() - small.top() + 4);
    QTest::mousePress(&page(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 5; ++step) move_mouse(from + (to - from) * step / 5);
    photograph(*window_, u"image-dragged-with-guides"_s);
    QTest::mouseRelease(&page(), Qt::LeftButton, {}, to);
    QTest::qWait(100);
    EXPECT_EQ(box_of(picture).topRight(), large.topRight());
    const QRect placed = editor_->selection().element->box;

    EXPECT_TRUE(editor_->modified());
    trigger(u"salva"_s);
    EXPECT_FALSE(editor_->modified());
    photograph(*window_, u"saved"_s);

    const QString folder = roots_.website(u"Lighthouse"_s);
    const auto published = read_text_file(folder + u"/index.htm"_s);
    ASSERT_TRUE(published);
    EXPECT_FALSE(published->text.contains(QRegularExpression(u"[§ç]|file:"_s)));
    EXPECT_THAT(published->text.toStdString(), HasSubstr("<TITLE>Lighthouse - Home Page</TITLE>"));
    EXPECT_THAT(
        published->text.toStdString(),
        HasSubstr(u"LEFT: %1px; POSITION: absolute; TOP: %2px"_s.arg(placed.left()).arg(placed.top()).toStdString()));
    EXPECT_TRUE(QFile::exists(folder + u"/media/img/Sea.jpg"_s));

    trigger(u"Modo_Browse"_s);
    ASSERT_TRUE(wait_until([this] { return window_->workbench().browsing(); }));
    QTest::qWait(700);
    photograph(*window_, u"browse-mode"_s);
    trigger(u"Modo_edit"_s);
    ASSERT_TRUE(wait_until([this] { return !window_->workbench().browsing(); }));
    EXPECT_EQ(window_->workbench().page(), u"index.htm"_s);
    EXPECT_FALSE(editor_->modified());
}

}  // namespace pondera
