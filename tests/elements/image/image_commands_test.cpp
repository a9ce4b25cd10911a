#include "elements/image/image_commands.h"

#include <QPainter>
#include <QSettings>
#include <QTest>

#include "base/text_file.h"
#include "elements/level_commands.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/shell_workbench.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

class NoProgress : public Progress {
  public:
    void begin(const QString&, const QString&, int) override {}
    void advance(int) override {}
    void end() override {}
};

/// The home page of a Website "Shop" in the real editing control, and a folder with pictures beside it.
class ImageCommands : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(roots_.website(u"Shop"_s)));
        ASSERT_TRUE(QDir().mkpath(path(u"Pictures"_s)));
        editor_.resize(900, 600);
        editor_.show();
        settings_.setValue(u"Wizard"_s, u"0"_s);
        open(u"<P>text</P>"_s);
    }

    void open(const QString& body) {
        ASSERT_TRUE(write_text_file(roots_.website(u"Shop"_s) + u"/çindex.htm"_s,
                                    u"<HTML><BODY>%1</BODY></HTML>"_s.arg(body), TextEncoding::kUtf8));
        ASSERT_TRUE(workbench_.open_website(u"Shop"_s));
    }

    [[nodiscard]] QString path(const QString& name) const { return home_.filePath(name); }

    QString picture(const QString& name, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(QColor(0x2c, 0x6e, 0x63));
        QPainter painter(&image);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xf2, 0xc1, 0x4e));
        painter.drawEllipse(QPointF(size.width() / 2.0, size.height() / 2.0), size.height() / 3.0, size.height() / 3.0);
        painter.end();
        EXPECT_TRUE(image.save(path(u"Pictures/"_s + name)));
        return path(u"Pictures/"_s + name);
    }

    void run(const QList<Command>& commands, const QString& name) {
        const auto command = std::ranges::find(commands, name, &Command::name);
        ASSERT_NE(command, commands.end());
        workbench_.run(*command);
    }

    /// The selected element lies there, once its picture has been loaded.
    void expect_selected_at(const QRect& box) {
        const auto now = [this] { return editor_.selection().element.value_or(SelectedElement()).box; };
        EXPECT_TRUE(QTest::qWaitFor([&] { return now() == box; })) << now().width() << " x " << now().height();
    }

    /// The image tags of the page, in their order.
    QStringList images() {
        QStringList tags;
        const QString text = editor_.text();
        for (qsizetype at = text.indexOf(u"<IMG"_s); at >= 0; at = text.indexOf(u"<IMG"_s, at + 1))
            tags += text.mid(at, text.indexOf(u'>', at) + 1 - at);
        return tags;
    }

    static ScriptedPrompts::Filler take(const QString& path) {
        return [path](const FormHand& hand) {
            hand.type(u"picture_path"_s, path);
            hand.click(u"OKButton"_s);
        };
    }

    static ScriptedPrompts::Filler resize(const QString& width, const QString& height) {
        return [width, height](const FormHand& hand) {
            hand.widget<QCheckBox>(u"keep_proportions"_s).setChecked(false);
            hand.type(u"txtLarghezza"_s, width);
            hand.type(u"txtAltezza"_s, height);
            hand.click(u"OKButton"_s);
        };
    }

    QTemporaryDir home_;
    Roots roots_{home_.filePath(u"Pondera_Folder"_s)};
    QSettings settings_{home_.filePath(u"settings.ini"_s), QSettings::IniFormat};
    DHTMLEdit editor_;
    ScriptedPrompts prompts_;
    NoProgress progress_;
    ShellWorkbench workbench_{roots_, editor_, prompts_, progress_, settings_};
};

TEST_F(ImageCommands, AnImageFromElsewhereIsCopiedAndPlaced) {
    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        EXPECT_EQ(hand.form().windowTitle(), u"Insert Image"_s);
        prompts_.expect_file(picture(u"My façade.png"_s, {320, 240}));
        hand.click(u"choose_picture"_s);
        EXPECT_EQ(hand.widget<QLabel>(u"picture_size"_s).text(), u"320 × 240 pixels"_s);
        hand.photograph(u"insert-image"_s);
        hand.click(u"OKButton"_s);
    });
    run(image_commands(), u"mnu_ins_marchio"_s);
    EXPECT_EQ(prompts_.questions().value(0).title, u"Select Image"_s);
    EXPECT_THAT(
        images(),
        testing::ElementsAre(u"<IMG name=Myxfacadexpng style=\"Z-INDEX: 1; LEFT: 10px; POSITION: absolute; TOP: 10px\" "
                             "src=\"media/img/My-facade.png\">"_s));
    EXPECT_EQ(read_file(roots_.website(u"Shop"_s) + u"/media/img/My-facade.png"_s),
              read_file(path(u"Pictures/My façade.png"_s)));
    expect_selected_at(QRect(10, 10, 320, 240));

    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        prompts_.expect_file({});
        hand.click(u"choose_picture"_s);
        hand.click(u"CancelButton"_s);
    });
    run(image_commands(), u"mnu_ins_marchio"_s);
    EXPECT_EQ(prompts_.questions().value(1).start_folder, path(u"Pictures"_s))
        << "the picker begins where the last one ended";

    ASSERT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_THAT(images(), testing::IsEmpty()) << "one step";
}

TEST_F(ImageCommands, WhatIsNoPictureForBrowsersIsRefused) {
    ASSERT_TRUE(write_file(path(u"Pictures/letter.jpg"_s), "Dear Ann"));
    ASSERT_TRUE(write_file(path(u"Pictures/raw.pgm"_s), "P2 1 1 255 7"));
    ASSERT_TRUE(write_file(path(u"Pictures/cut.png"_s), read_file(picture(u"a.png"_s, {90, 90}))->first(60)));
    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        hand.photograph(u"insert-image-empty"_s);
        for (const auto& [file, message] :
             {std::pair{u""_s, u"Insert all required data."_s}, std::pair{path(u"none.gif"_s), u"does not exist"_s},
              std::pair{path(u"Pictures"_s), u"does not exist"_s},
              std::pair{path(u"Pictures/letter.jpg"_s), u"is not a picture that can be read"_s},
              std::pair{path(u"Pictures/raw.pgm"_s), u"Browsers do not show pictures of the kind PGM"_s},
              std::pair{path(u"Pictures/cut.png"_s), u"is damaged"_s}}) {
            prompts_.expect_message(message);
            hand.type(u"picture_path"_s, file);
            hand.click(u"OKButton"_s);
        }
        hand.click(u"CancelButton"_s);
    });
    run(image_commands(), u"mnu_ins_marchio"_s);
    EXPECT_THAT(images(), testing::IsEmpty());
}

TEST_F(ImageCommands, APictureCanBeDroppedOnThePreview) {
    const QString dropped = picture(u"drop.gif.png"_s, {50, 40});
    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [&](const FormHand& hand) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(dropped)});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        for (QEvent* event : {static_cast<QEvent*>(&enter), static_cast<QEvent*>(&drop)})
            QCoreApplication::sendEvent(&hand.widget<QLabel>(u"preview"_s), event);
        hand.click(u"OKButton"_s);
    });
    run(image_commands(), u"mnu_ins_marchio"_s);
    EXPECT_THAT(images().value(0).toStdString(), testing::HasSubstr("src=\"media/img/drop.gif.png\""));
}

TEST_F(ImageCommands, LogosAreNamedByTheFixedWord) {
    const QString logo = picture(u"logo.png"_s, {100, 50});
    for (const QString& name : {u"name=marchio "_s, u"name=marchio2 "_s}) {
        prompts_.expect_form(u"Frm_Inserisci_Imm"_s, take(logo));
        run(image_commands(), u"mnu_ins_marchio1"_s);
        EXPECT_THAT(images().last().toStdString(), testing::HasSubstr(name.toStdString()));
    }
}

TEST_F(ImageCommands, APictureWiderThanThePageIsOfferedAtAWidthThatFits) {
    const QString wide = picture(u"wide.png"_s, {1920, 1080});
    const std::vector<std::pair<Answer, QRect>> cases{{Answer::kYes, {10, 10, 960, 540}},
                                                      {Answer::kNo, {10, 10, 1920, 1080}}};
    for (const auto& [answer, box] : cases) {
        prompts_.expect_form(u"Frm_Inserisci_Imm"_s, take(wide)).expect_message(u"1920 pixels wide"_s, answer);
        run(image_commands(), u"mnu_ins_marchio"_s);
        expect_selected_at(box);
    }
    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, take(wide)).expect_message(u"1920 pixels wide"_s, Answer::kCancel);
    run(image_commands(), u"mnu_ins_marchio"_s);
    EXPECT_EQ(images().size(), 2);
}

TEST_F(ImageCommands, ImageSizeChangesTheSelectedImageOnly) {
    const QString twin =
        u"<img name=%1 style=\"position:absolute; left:30; top:40; z-index:5; width:60px; height:20px\" src=\"a.gif\">"_s;
    open(twin.arg(u"a"_s) + u"<a href=\"x.htm\">"_s + twin.arg(u"b"_s) + u"</a>"_s + twin.arg(u"c"_s) +
         twin.arg(u"c"_s));
    const QStringList before = images();
    const auto sized = [](QString tag, int width, int height) {
        return tag.replace(u"60px"_s, u"%1px"_s.arg(width)).replace(u"20px"_s, u"%1px"_s.arg(height));
    };

    ASSERT_TRUE(editor_.select_element(u"b"_s));
    prompts_.expect_form(u"Frm_Ridim_Imm"_s, [&](const FormHand& hand) {
        EXPECT_EQ(hand.widget<QLineEdit>(u"txtLarghezza"_s).text(), u"60"_s);
        EXPECT_EQ(hand.widget<QLineEdit>(u"txtAltezza"_s).text(), u"20"_s);
        hand.widget<QLineEdit>(u"txtLarghezza"_s).clear();
        QTest::keyClicks(&hand.widget<QLineEdit>(u"txtLarghezza"_s), u"90"_s);
        EXPECT_EQ(hand.widget<QLineEdit>(u"txtAltezza"_s).text(), u"30"_s) << "keeps the proportions";
        hand.photograph(u"image-size"_s);
        hand.click(u"OKButton"_s);
    });
    run(image_commands(), u"mnu_dim_imm"_s);
    EXPECT_EQ(images(), (QStringList{before[0], sized(before[1], 90, 30), before[2], before[3]}));
    EXPECT_EQ(editor_.selection().element.value_or(SelectedElement()).name, u"b"_s) << "still selected";
    ASSERT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(images(), before) << "one step";

    ASSERT_TRUE(editor_.select_element(u"c"_s));
    prompts_.expect_form(u"Frm_Ridim_Imm"_s, resize(u"70"_s, u"80"_s));
    run(image_commands(), u"mnu_dim_imm"_s);
    EXPECT_EQ(images(), (QStringList{before[0], before[1], sized(before[2], 70, 80), before[3]}))
        << "twins in all four traits";
}

TEST_F(ImageCommands, AnImageInTheTextIsResizedToo) {
    open(u"<p>a <img name=a src=\"a.gif\" width=60 height=20> b</p>"_s);
    ASSERT_TRUE(editor_.select_element(u"a"_s));
    prompts_.expect_form(u"Frm_Ridim_Imm"_s, resize(u"70"_s, u"80"_s));
    run(image_commands(), u"mnu_dim_imm"_s);
    EXPECT_EQ(images(), (QStringList{u"<IMG name=a src=\"a.gif\" width=70 height=80>"_s}));
}

TEST_F(ImageCommands, ImageSizeRefusesWhatIsOutOfRange) {
    open(u"<img name=a style=\"position:absolute; left:1; top:2; width:60px; height:20px\" src=\"a.gif\">"_s);
    const QStringList before = images();
    run(image_commands(), u"mnu_dim_imm"_s);  // nothing selected: does nothing

    ASSERT_TRUE(editor_.select_element(u"a"_s));
    prompts_.expect_form(u"Frm_Ridim_Imm"_s, [&](const FormHand& hand) {
        auto& width = hand.widget<QLineEdit>(u"txtLarghezza"_s);
        for (const QString& refused : {u""_s, u"0"_s}) {
            width.setText(refused);
            prompts_.expect_message(u"Insert values between 1 and 30000"_s);
            hand.click(u"OKButton"_s);
        }
        prompts_.expect_message(u"Insert values between 1 and 30000"_s);
        hand.type(u"txtLarghezza"_s, u"30001"_s);
        hand.click(u"CancelButton"_s);
    });
    run(image_commands(), u"mnu_dim_imm"_s);
    EXPECT_EQ(images(), before);
}

TEST_F(ImageCommands, LevelsWorkOnTheSelectedElement) {
    open(
        u"<img name=a style=\"position:absolute; left:1; top:2; z-index:5\"><img name=b style=\"position:absolute; left:90; top:2; z-index:7\">"_s);
    ASSERT_TRUE(editor_.select_element(u"a"_s));
    run(level_commands(), u"D2DSub2"_s);
    EXPECT_EQ(editor_.selection().element.value_or(SelectedElement()).z_index, u"8"_s);
    run(level_commands(), u"D2DSub3"_s);
    EXPECT_EQ(editor_.selection().element.value_or(SelectedElement()).z_index, u"6"_s);

    EXPECT_EQ(levels_lock_caption(editor_.status(EditCommand::kLockElement)), u"Lock Position"_s);
    run(level_commands(), u"D2DSub7"_s);
    EXPECT_EQ(levels_lock_caption(editor_.status(EditCommand::kLockElement)), u"Unlock Position"_s);
}

}  // namespace

}  // namespace pondera
