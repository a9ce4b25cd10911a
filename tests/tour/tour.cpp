#include "shell/frm_splash.h"
#include "shell/frm_wizard.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {

TEST_F(Tour, FromTheFirstStartToAPageInTheBrowser) {
    {
        int starts = 0;
        frmSplash splash([&starts] { ++starts; });
        splash.show();
        ASSERT_TRUE(wait_until([&splash] { return !splash.isVisible(); }));
        QTest::qWait(1000);
        EXPECT_EQ(starts, 1) << "its timer goes off once";
        pondera::photograph(splash, u"splash"_s);
    }
    photograph(u"start"_s);

    show_wizard(workbench());
    auto& wizard = *window_->findChild<frmWizard*>();
    pondera::photograph(wizard, u"wizard"_s);
    const auto name = [](const FormHand& form) {
        form.type(u"txtName"_s, u"Lighthouse"_s).photograph(u"new-website-name"_s).click(u"OKButton"_s);
    };
    const auto choose_entry = [](const QString& entry, const QString& picture) {
        return [=](const FormHand& form) { form.choose(u"list"_s, entry).photograph(picture).click(u"OKButton"_s); };
    };
    prompts_.expect_form(u"Frm_Nuovo"_s, name)
        .expect_form(u"Frm_Selezione_Iniziale"_s,
                     choose_entry(u"Interfaccia Standard_Interface"_s, u"new-website-model"_s))
        .expect_form(u"Frm_Selezione_Iniziale1"_s, choose_entry(u"Card 1"_s, u"new-website-first-page"_s));
    QTest::mouseClick(wizard.findChild<QPushButton*>(u"cmd_create"_s), Qt::LeftButton);
    wizard.close();
    ASSERT_EQ(workbench().website(), u"Lighthouse"_s);
    photograph(u"home-page"_s);

    control().view()->setFocus();
    type_over(u"h1"_s, u"The lighthouse is open"_s);
    type_over(u"h1 + p"_s, u"Come up on Sundays, the view is free."_s);
    for (int word = 0; word < 2; ++word)
        QTest::keyClick(&page_view(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::qWait(100);
    run(u"Bold"_s);
    EXPECT_THAT(body_of(editor().text()), Holds(u"<H1>The lighthouse is open</H1>\n"
                                                "<P class=lead>Come up on Sundays, the view is <B>free.</B></P>"_s));
    photograph(u"typed-and-formatted"_s);

    run_form(u"immagine"_s, u"Frm_Inserisci_Imm"_s, [this](const FormHand& form) {
        form.type(u"picture_path"_s, QDir(roots_.graphics_library()).filePath(u"Sea.jpg"_s));
        form.photograph(u"insert-image"_s).click(u"OKButton"_s);
    });
    ASSERT_TRUE(editor().selection().element);
    const QString picture = u"img[name='%1']"_s.arg(editor().selection().element->name);
    photograph(u"image-inserted"_s);

    run_form(u"mnu_dim_imm"_s, u"Frm_Ridim_Imm"_s, [](const FormHand& form) {
        form.type(u"txtLarghezza"_s, u"320"_s).type(u"txtAltezza"_s, u"200"_s);
        form.photograph(u"image-size"_s).click(u"OKButton"_s);
    });
    ASSERT_EQ(editor().selection().element->box.size(), QSize(320, 200));

    // To a place where it snaps: the right edge and the top of the large picture of the page.
    const QRect large = box_of(u"img.wide"_s), small = box_of(picture);
    const QPoint from = small.center();
    const QPoint to = from + QPoint(large.right() - small.right() + 3, large.top() - small.top() + 4);
    QTest::mousePress(&page_view(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 5; ++step) {
        move_mouse(page_view(), from + (to - from) * step / 5, Qt::LeftButton);
        QTest::qWait(60);
    }
    photograph(u"image-dragged-with-guides"_s);
    QTest::mouseRelease(&page_view(), Qt::LeftButton, {}, to);
    QTest::qWait(100);
    EXPECT_EQ(box_of(picture).topRight(), large.topRight());
    const QPoint placed = editor().selection().element->box.topLeft();

    run(u"salva"_s);
    photograph(u"saved"_s);
    const QString published = read(u"Lighthouse"_s, u"index.htm"_s);
    EXPECT_FALSE(published.contains(QRegularExpression(u"[§ç]|file:"_s)));
    EXPECT_THAT(published, Holds(u"LEFT: %1px; POSITION: absolute; TOP: %2px"_s.arg(placed.x()).arg(placed.y())));

    run(u"Modo_Browse"_s);
    ASSERT_TRUE(wait_until([this] { return workbench().browsing(); }));
    QTest::qWait(400);
    photograph(u"browse-mode"_s);
    run(u"Modo_edit"_s);
    ASSERT_TRUE(wait_until([this] { return !workbench().browsing(); }));
}

}  // namespace pondera
