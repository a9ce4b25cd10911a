#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

class DocumentText : public EditingFixture {};

TEST_F(DocumentText, IsSpelledAsTheRulesSearchForIt) {
    expect_results(
        [this](const QString& markup) {
            load_body(markup);
            return body();
        },
        {u"<img name=\"mn1\" src='a b.gif' border=\"0\"> → <IMG name=mn1 src=\"a b.gif\" border=0>",
         u"<p>plain</p> → \n<P>plain</P>",
         u"<img style=\"position: absolute; left: 100; top: 100; z-index: 1010;\">"
         u" → <IMG style=\"Z-INDEX: 1010; POSITION: absolute; LEFT: 100; TOP: 100\">",
         u"<span style=\"filter: blendTrans(duration=3); background: url('a;b.gif')\">x</span>"
         u" → <SPAN style=\"FILTER: blendTrans(duration=3); BACKGROUND: url('a;b.gif')\">x</SPAN>",
         u"<a href=\"_4_Car.htm\" onclick=\"k=1\">x</a> → <A href=\"_4_Car.htm\" onclick=k=1>x</A>",
         u"<img alt=\"one&#13;&#10;two > three\"> → <IMG alt=\"one&#13;&#10;two &gt; three\">",
         u"§ ç \\ &nbsp;&lt; → &sect; &ccedil; &#92; &nbsp;&lt;",
         u"<a href=\"§_4_Car.htm\" title=\"§\">x</a> → <A href=\"§_4_Car.htm\" title=&sect;>x</A>",
         u"<pre>\n\na<div>b</div></pre> → \n<PRE>\n\na<DIV>b</DIV></PRE>",
         u"<script>if (a < b && c) x = '§\\n';</script> → <SCRIPT>if (a < b && c) x = '§\\n';</SCRIPT>",
         u"<!-- photo-show --><hr noshade> → <!-- photo-show -->\n<HR noshade=\"\">"});
}

TEST_F(DocumentText, SavedUntouchedTwiceIsTheSameBytes) {
    const QString pages[] = {
        u"<html>\r\n<head>\r\n<title>A</title>\r\n</head>\r\n\r\n<body bgcolor=#ffffff>\r\n<p>text</p>\r\n</body>\r\n</html>\r\n"_s,
        u"<!-- before --><!DOCTYPE html><html lang=it><head><style>ul li{display:inline-block}</style></head><body>"
        "<ul><li>a</li><li>b</li></ul><table><tr><td>1<td>2</table></body></html><!-- after -->\n"_s,
        u"no tags at all"_s,
        u"<p>unclosed <b>nested <i>wrong</b> order</i><div style=\"white-space:pre\">a\n  <p>b</p></div>"_s,
        u""_s,
        u"<html lang=\"it\"\"><body \"q\"><p>odd attributes</p></body></html>"_s,
        u"foo<div style='position:absolute'>x</div>bar<table align=right><tr><td>1</table>baz"_s,
        u"<svg><style>a &lt;b</style></svg><plaintext>a <b>"_s,
    };
    for (const QString& page : pages) {
        load(page);
        ASSERT_TRUE(editor_.save_document(path(u"1.htm"_s)));
        ASSERT_TRUE(editor_.load_document(path(u"1.htm"_s)));
        ASSERT_TRUE(editor_.save_document(path(u"2.htm"_s)));
        EXPECT_EQ(read_file(path(u"1.htm"_s)).value(), read_file(path(u"2.htm"_s)).value());
        EXPECT_EQ(page.contains(u"\r\n"_s), read_file(path(u"1.htm"_s))->contains("\r\n"));
    }
}

TEST_F(DocumentText, PiecesOfServerScriptComeBackToTheLetter) {
    load(
        u"<?xml version=\"1.0\"?><html><head><?php if (1 > 0) include \"a.php\"; ?><title>T <?= $t ?></title></head>"
        "<body class=\"<?= $c ?>\"><p>A paragraph of words around <?php echo 1 > 0 ?>, so long that the script is less "
        "than half of the page, by far, as in pages that mostly hold words.</p><% x %></body></html>"_s);
    for (const QString& piece : {u"<?xml version=\"1.0\"?>\n<HTML>"_s,
                                 u"<HEAD><?php if (1 > 0) include \"a.php\"; ?>"_s, u"<TITLE>T <?= $t ?></TITLE>"_s,
                                 u"class=\"<?= $c ?>\""_s, u"around <?php echo 1 > 0 ?>, so"_s, u"<% x %></BODY>"_s}) {
        EXPECT_TRUE(editor_.text().contains(piece)) << qPrintable(piece);
    }
}

TEST_F(DocumentText, RefusesWhatIsNoPageAndKeepsTheOneItHas) {
    load(u"<body>kept</body>"_s);
    for (const auto& [bytes, fault] :
         {std::pair{QByteArray("<html><frameset cols=*><frame src=a.htm></frameset></html>"), FaultNumber::kFrameset},
          {"<%@ page %><% for (;;) { out.print(\"rather long\"); } %><p>a</p>", FaultNumber::kServerScript},
          {QByteArray("GIF89a\0\0\1", 9), FaultNumber::kBinary},
          {QByteArray(50 * 1024 * 1024, ' '), FaultNumber::kTooLarge}}) {
        ASSERT_TRUE(write_file(path(u"bad.htm"_s), bytes));
        const auto loaded = editor_.load_document(path(u"bad.htm"_s));
        ASSERT_FALSE(loaded);
        EXPECT_EQ(loaded.error().number, fault);
    }
    EXPECT_EQ(editor_.load_document(path(u"none.htm"_s)).error().number, FaultNumber::kFileNotFound);
    EXPECT_EQ(body(), u"kept"_s);
    ASSERT_TRUE(write_file(path(u"talk.htm"_s), "<!-- <frameset> --><p>about <?php ?> and &lt;frameset&gt;</p>"));
    EXPECT_TRUE(editor_.load_document(path(u"talk.htm"_s)));
}

TEST_F(DocumentText, ReplacedAsAWholeIsOneStep) {
    load(u"<html><head><title>A</title></head><body><p>one</p><p>two</p></body></html>"_s);
    const QString before = editor_.text();
    editor_.replace_text(
        u"<!DOCTYPE html><html><head><title>B</title></head><body bgcolor=red><p>one</p><p>2</p></body></html>"_s);
    const QString after = editor_.text();
    EXPECT_TRUE(after.contains(u"<!DOCTYPE html>"_s) && after.contains(u"<BODY bgcolor=red>"_s) &&
                after.contains(u"<P>2</P>"_s));
    EXPECT_TRUE(editor_.modified());
    undo_to(before);
    EXPECT_FALSE(editor_.modified());
    EXPECT_FALSE(editor_.execute(EditCommand::kUndo));
    EXPECT_TRUE(editor_.execute(EditCommand::kRedo));
    EXPECT_EQ(editor_.text(), after);
}

}  // namespace pondera
