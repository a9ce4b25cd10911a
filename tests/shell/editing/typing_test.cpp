#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

class Typing : public EditingFixture {};

TEST_F(Typing, GoesIntoTheTextAndIsTakenBackWordByWord) {
    load_selected(u"<p>Hello|</p>"_s);
    const QString start = editor_.text();
    type(u" big world"_s);
    EXPECT_EQ(body(), u"\n<P>Hello big world</P>"_s);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(body(), u"\n<P>Hello big&nbsp;</P>"_s);
    for (int step = 0; step < 2; ++step) key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor_.text(), start);
    EXPECT_FALSE(editor_.modified());
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    for (int step = 0; step < 2; ++step) key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(body(), u"\n<P>Hello big world</P>"_s);
    EXPECT_TRUE(editor_.modified());
}

TEST_F(Typing, ParagraphsStayApartAndBringNoLookAlong) {
    const QString page =
        u"<style>h1 { color: #123456; font: 40px Georgia } .lead { color: #654321; font-size: 20px }</style>"
        "<div><img src=a.png>\n<h1>Head</h1>\n<p class=lead>Words <font color=red>red</font></p></div>"_s;
    const auto select = [this](const QString& range) {
        evaluate(
            u"{ const [div, h1, p] = ['div', 'h1', 'p'].map(name => document.querySelector(name));"
            " getSelection().setBaseAndExtent(%1); }"_s.arg(range));
    };
    // Three clicks select over the edge of the paragraph.
    for (const QString& range : {u"h1.firstChild, 0, p, 0"_s, u"div, 1, h1.firstChild, 4"_s}) {
        load_body(page);
        select(range);
        type(u"New"_s);
        EXPECT_THAT(body(), Holds(u"<H1>New</H1>\n<P class=lead>Words <FONT color=red>red</FONT></P>"_s));
    }
    load_body(page);
    const QString before = editor_.text();
    select(u"p.firstChild, 0, p.firstChild, 0"_s);
    key(Qt::Key_Backspace);
    type(u"-"_s);
    EXPECT_THAT(body(), Holds(u"<H1>Head-Words <FONT color=red>red</FONT></H1>"_s));
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    undo_to(before);

    load_selected(u"<p>one <b>t[wo</b></p><ul><li>three</li><li>fo]ur</li></ul><p>five</p>"_s);
    key(Qt::Key_Delete);
    EXPECT_EQ(body(), u"\n<P>one <B>t</B>ur</P>\n<P>five</P>"_s);
    evaluate(u"getSelection().collapse(document.querySelectorAll('p')[0], 3)"_s);
    key(Qt::Key_Delete);
    EXPECT_EQ(body(), u"\n<P>one <B>t</B>urfive</P>"_s);
}

TEST_F(Typing, FormatsAreOldFashionedTagsAndShowTheirStatus) {
    using enum EditCommand;
    const std::vector<std::tuple<EditCommand, QVariant, QString>> cases{
        {kBold, {}, u"<P>one <B>two</B> three</P>"_s},
        {kItalic, {}, u"<P>one <I>two</I> three</P>"_s},
        {kUnderline, {}, u"<P>one <U>two</U> three</P>"_s},
        {kFontName, u"Arial"_s, u"<P>one <FONT face=Arial>two</FONT> three</P>"_s},
        {kFontSize, u"5"_s, u"<P>one <FONT size=5>two</FONT> three</P>"_s},
        {kForeColor, u"#cc0000"_s, u"<P>one <FONT color=#cc0000>two</FONT> three</P>"_s},
        {kJustifyCenter, {}, u"<P style=\"TEXT-ALIGN: center\">one two three</P>"_s},
        {kUnorderedList, {}, u"<UL><LI>one two three</LI></UL>"_s},
    };
    for (const auto& [command, value, result] : cases) {
        load_selected(u"<p>one [two] three</p>"_s);
        const QString before = editor_.text();
        EXPECT_EQ(editor_.status(kUndo), CommandStatus::kDisabled);
        EXPECT_EQ(editor_.status(command), CommandStatus::kEnabled);
        EXPECT_TRUE(editor_.execute(command, value));
        EXPECT_EQ(text(), result);
        undo_to(before);
        EXPECT_EQ(editor_.selection().text, u"two"_s);
    }
    load_selected(u"<p><b>[bold]</b> plain</p>"_s);
    EXPECT_EQ(editor_.status(EditCommand::kBold), CommandStatus::kLatched);
    EXPECT_EQ(editor_.status(EditCommand::kLockElement), CommandStatus::kDisabled);
    EXPECT_EQ(editor_.status(static_cast<EditCommand>(4711)), CommandStatus::kNotSupported);
}

TEST_F(Typing, ListsTakeTheParagraphsLookAndGiveItBack) {
    load_selected(u"<div><p class=lead align=center>o[ne <b>two</b></p><p>th]ree</p></div><ul><li>four</li></ul>"_s);
    const QString before = body();
    EXPECT_TRUE(editor_.execute(EditCommand::kOrderedList));
    EXPECT_THAT(body(), Holds(u"<OL>\n<LI class=lead align=center>one <B>two</B></LI>\n<LI>three</LI></OL>"_s));
    EXPECT_TRUE(editor_.execute(EditCommand::kUnorderedList));
    EXPECT_THAT(body(), Holds(u"<UL>\n<LI class=lead"_s));
    EXPECT_TRUE(editor_.execute(EditCommand::kUnorderedList));
    EXPECT_EQ(body(), before);
}

TEST_F(Typing, OfficeMarkupIsCleanedOnPaste) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<html xmlns:o='urn:schemas'><head><style>p{x}</style></head><body><!--StartFragment-->"
         "<h1 style='mso-x:1'>Head</h1><p class=MsoNormal style='margin:0'><span lang=EN style='font-weight:bold'>Bold"
         "<o:p></o:p></span>&nbsp;and <i>it</i></p><p class=MsoNormal><o:p>&nbsp;</o:p></p><!--EndFragment-->"_s,
         u"<H1>Head</H1>\n<P><B>Bold</B>&nbsp;and <I>it</I></P>"_s},
        {u"<p class=MsoListParagraph style='mso-list:l0 level1 lfo1'><span style='mso-list:Ignore'>·</span>a</p>"
         "<p style='mso-list:l0 level2 lfo1'><span style='mso-list:Ignore'>1.</span>b</p>"
         "<p style='mso-list:l0 level1 lfo1'><span style='mso-list:Ignore'>·<span>&nbsp;</span></span>c</p>"_s,
         u"<UL>\n<LI>a\n<OL>\n<LI>b</LI></OL></LI>\n<LI>c</LI></UL>"_s},
        {u"<b style='font-weight:normal' id=docs><p><span style='font-weight:700'>x</span> "
         "<a href='javascript:evil()'>bad</a><a href='http://example.org/'>good</a></p></b>"_s,
         u"<P><B>x</B> bad<A href=\"http://example.org/\">good</A></P>"_s},
        {u"<table class=t><tr><td style='width:3cm' colspan=2><p>1</p></table><img src='file:///c:/x.png'><script>1</script>"_s,
         u"<TABLE border=1>\n<TBODY>\n<TR>\n<TD colspan=2>1</TD></TR></TBODY></TABLE>"_s},
    };
    for (const auto& [html, result] : cases) {
        load_selected(u"<p>[x]</p>"_s);
        EXPECT_EQ(evaluate(u"pondera.clipboard.clean(`%1`)"_s.arg(html)).toString(), result);
        const QString before = editor_.text();
        put_on_clipboard(html, u"plain"_s);
        key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return editor_.text() != before; }));
        EXPECT_FALSE(body().contains(u"style"_s) || body().contains(u"Mso"_s) || body().contains(u"plain"_s))
            << qPrintable(body());
        undo_to(before);
    }
}

TEST_F(Typing, TextPasteKeepsTheTextAlone) {
    load_selected(u"<p>[x]</p>"_s);
    put_on_clipboard(u"<h1>Big</h1>"_s, u"a < b\nsecond"_s);
    editor_.paste_text();
    EXPECT_EQ(body(), u"\n<P>a &lt; b</P>\n<P>second</P>"_s);
}

TEST_F(Typing, OwnMarkupSurvivesCutAndPaste) {
    load_selected(u"<p>one <font face=Arial>[two]</font></p>"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kCut));
    EXPECT_FALSE(body().contains(u"two"_s));
    EXPECT_TRUE(editor_.execute(EditCommand::kPaste));
    EXPECT_EQ(QString(body()).replace(u"&nbsp;"_s, u" "_s).simplified(), u"<P>one <FONT face=Arial>two</FONT></P>"_s);
}

}  // namespace pondera
