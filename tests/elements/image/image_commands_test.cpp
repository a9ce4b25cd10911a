#include "elements/level_commands.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The home page of the Website "Shop", and a folder with pictures beside it.
class ImageCommands : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        show_page(u"<P>text</P>"_s);
    }

    void show_page(const QString& body) {
        write(u"Shop"_s, u"çindex.htm"_s, body);
        open(u"Shop"_s);
    }

    [[nodiscard]] QString picture(const QString& name, QSize size) const {
        return make_picture(u"Pictures/"_s + name, size);
    }

    /// Inserts the picture; `fits` answers whether a wide one shall fit the page.
    void insert(const QString& command, const QString& picture, std::optional<Answer> fits = {}) {
        run_form(command, u"Frm_Inserisci_Imm"_s, [=, this](const FormHand& hand) {
            if (fits) prompts_.expect_message(u"1920 pixels wide"_s, *fits);
            hand.type(u"picture_path"_s, picture).click(u"OKButton"_s);
        });
    }

    [[nodiscard]] SelectedElement selected() { return editor().selection().element.value_or(SelectedElement()); }

    /// The selected element lies there, once its picture has been loaded.
    void expect_selected_at(const QRect& box) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return selected().box == box; })) << selected().box.width();
    }

    /// The image tags of the page, in their order.
    QStringList images() {
        QStringList tags;
        for (const auto& tag : QRegularExpression(u"<IMG[^>]*>"_s).globalMatch(editor().text())) tags += tag.captured();
        return tags;
    }
};

TEST_F(ImageCommands, AnImageFromElsewhereIsCopiedAndPlaced) {
    run_form(u"mnu_ins_marchio"_s, u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        prompts_.expect_file(picture(u"My façade.png"_s, {320, 240}));
        hand.click(u"choose_picture"_s);
        EXPECT_EQ(hand.widget<QLabel>(u"picture_size"_s).text(), u"320 × 240 pixels"_s);
        hand.photograph(u"insert-image"_s).click(u"OKButton"_s);
    });
    EXPECT_EQ(images(), QStringList(u"<IMG name=Myxfacadexpng style=\"Z-INDEX: 1; LEFT: 10px; POSITION: absolute; "
                                    "TOP: 10px\" src=\"media/img/My-facade.png\">"_s));
    EXPECT_EQ(read_file(shop(u"media/img/My-facade.png"_s)), read_file(home_.filePath(u"Pictures/My façade.png"_s)));
    expect_selected_at(QRect(10, 10, 320, 240));

    ASSERT_TRUE(editor().execute(EditCommand::kUndo));
    EXPECT_EQ(images(), QStringList()) << "one step";
}

TEST_F(ImageCommands, WhatIsNoPictureForBrowsersIsRefused) {
    ASSERT_TRUE(write_file(home_.filePath(u"letter.jpg"_s), "Dear Ann"));
    ASSERT_TRUE(write_file(home_.filePath(u"raw.pgm"_s), "P2 1 1 255 7"));
    ASSERT_TRUE(write_file(home_.filePath(u"cut.png"_s), read_file(picture(u"a.png"_s, {90, 90}))->first(60)));
    run_form(u"mnu_ins_marchio"_s, u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        for (const auto& [file, message] :
             {std::pair{QString(), u"Insert all required data."_s},
              {home_.filePath(u"none.gif"_s), u"does not exist"_s},
              {home_.filePath(u"Pictures"_s), u"does not exist"_s},
              {home_.filePath(u"letter.jpg"_s), u"is not a picture that can be read"_s},
              {home_.filePath(u"raw.pgm"_s), u"Browsers do not show pictures of the kind PGM"_s},
              {home_.filePath(u"cut.png"_s), u"is damaged"_s}}) {
            prompts_.expect_message(message);
            hand.type(u"picture_path"_s, file).click(u"OKButton"_s);
        }
        hand.click(u"CancelButton"_s);
    });
    EXPECT_EQ(images(), QStringList());
}

TEST_F(ImageCommands, APictureCanBeDroppedOnThePreview) {
    run_form(u"mnu_ins_marchio"_s, u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(picture(u"drop.gif.png"_s, {50, 40}))});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        for (QEvent* event : {static_cast<QEvent*>(&enter), static_cast<QEvent*>(&drop)})
            QCoreApplication::sendEvent(&hand.widget<QLabel>(u"preview"_s), event);
        hand.click(u"OKButton"_s);
    });
    EXPECT_TRUE(images().value(0).contains(u"src=\"media/img/drop.gif.png\""_s));
}

TEST_F(ImageCommands, LogosAreNamedByTheFixedWord) {
    for (int twice = 0; twice < 2; ++twice) insert(u"mnu_ins_marchio1"_s, picture(u"logo.png"_s, {100, 50}));
    EXPECT_THAT(images(), testing::ElementsAre(Holds(u"name=marchio "_s), Holds(u"name=marchio2 "_s)));
}

TEST_F(ImageCommands, APictureWiderThanThePageIsOfferedAtAWidthThatFits) {
    const QString wide = picture(u"wide.png"_s, {1920, 1080});
    insert(u"mnu_ins_marchio"_s, wide, Answer::kYes);
    expect_selected_at({10, 10, 960, 540});
    insert(u"mnu_ins_marchio"_s, wide, Answer::kNo);
    expect_selected_at({10, 10, 1920, 1080});
    insert(u"mnu_ins_marchio"_s, wide, Answer::kCancel);
    EXPECT_EQ(images().size(), 2);
}

TEST_F(ImageCommands, ImageSizeChangesTheSelectedImageOnly) {
    const QString twin =
        u"<img name=%1 style=\"position:absolute; left:30; top:40; z-index:5; width:60px; height:20px\" src=\"a.gif\">"_s;
    show_page(twin.arg(u"a"_s) + u"<a href=\"x.htm\">"_s + twin.arg(u"b"_s) + u"</a>"_s + twin.arg(u"c"_s).repeated(2));
    EXPECT_FALSE(choose(u"mnu_dim_imm"_s)) << "nothing is selected";
    const QStringList before = images();
    const auto sized = [](QString tag, const QString& size) { return tag.replace(u"60px; HEIGHT: 20px"_s, size); };
    ASSERT_TRUE(editor().select_element(u"b"_s));
    run_form(u"mnu_dim_imm"_s, u"Frm_Ridim_Imm"_s, [&](const FormHand& hand) {
        auto& width = hand.widget<QLineEdit>(u"txtLarghezza"_s);
        const auto& height = hand.widget<QLineEdit>(u"txtAltezza"_s);
        EXPECT_EQ(width.text() + u" x "_s + height.text(), u"60 x 20"_s);
        width.setText(u"0"_s);
        for (int twice = 0; twice < 2; ++twice) prompts_.expect_message(u"Insert values between 1 and 30000"_s);
        hand.click(u"OKButton"_s).type(u"txtLarghezza"_s, u"30001"_s).type(u"txtLarghezza"_s, u"90"_s);
        EXPECT_EQ(height.text(), u"30"_s) << "keeps the proportions";
        hand.photograph(u"image-size"_s).click(u"OKButton"_s);
    });
    EXPECT_EQ(images(), (QStringList{before[0], sized(before[1], u"90px; HEIGHT: 30px"_s), before[2], before[3]}));
    EXPECT_EQ(selected().name, u"b"_s) << "still selected";
    ASSERT_TRUE(editor().execute(EditCommand::kUndo));
    EXPECT_EQ(images(), before) << "one step";

    ASSERT_TRUE(editor().select_element(u"c"_s));
    run_form(u"mnu_dim_imm"_s, u"Frm_Ridim_Imm"_s, [&](const FormHand& hand) {
        hand.click(u"keep_proportions"_s).type(u"txtLarghezza"_s, u"70"_s).type(u"txtAltezza"_s, u"80"_s);
        hand.click(u"OKButton"_s);
    });
    EXPECT_EQ(images(), (QStringList{before[0], before[1], sized(before[2], u"70px; HEIGHT: 80px"_s), before[3]}))
        << "twins in all four traits";
}

TEST_F(ImageCommands, LevelsWorkOnTheSelectedElement) {
    const QString image = u"<img name=%1 style=\"position:absolute; left:%2; top:2; z-index:%3\">"_s;
    show_page(image.arg(u"a"_s).arg(1).arg(5) + image.arg(u"b"_s).arg(90).arg(7));
    ASSERT_TRUE(editor().select_element(u"a"_s));
    for (const auto& [command, level] : {std::pair{u"D2DSub2"_s, u"8"_s}, {u"D2DSub3"_s, u"6"_s}}) {
        run(command);
        EXPECT_EQ(selected().z_index, level);
    }
    for (const QString& caption : {u"Lock Position"_s, u"Unlock Position"_s}) {
        EXPECT_EQ(levels_lock_caption(editor().status(EditCommand::kLockElement)), caption);
        run(u"D2DSub7"_s);
    }
}

}  // namespace pondera
