#include <functional>
#include <random>
#include <ranges>

#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

const QString kPage =
    u"<html><head><title>t</title></head><body bgcolor=white>\n<p>one two <b>bold</b> three <font "
    u"face=Arial>font</font>"
    " end</p>\n<p><a href=\"l.htm\">link text</a> and <img src=a.png name=flow> pic</p><ul><li>item a</li><li>item "
    "<i>b</i><ol><li>deep</li></ol></li></ul><h2>Head</h2><table border=1><tr><td>c1</td><td><p>c2</p></td></tr><tr>"
    "<td>c3</td><td>c4 <b>x</b></td></tr></table><p>line1<br>line2 <i>it</i><br>line3</p>loose text<br>more\n"
    "<div style=\"Z-INDEX: 4; LEFT: 400px; WIDTH: 200px; POSITION: absolute; TOP: 300px\">box text<p>box p</p></div>"
    "<a href=\"i.htm\"><img name=pos src=a.png style=\"Z-INDEX: 5; LEFT: 300px; POSITION: absolute; TOP: 100px\"></a>"
    "<!-- c --><pre>pre\n text</pre></body></html>"_s;

class History : public EditingFixture {
  protected:
    /// One of the things that a person can do, anywhere on the page.
    void do_anything(std::mt19937& random) {
        using enum EditCommand;
        const auto any = [&random](qsizetype below) { return static_cast<qsizetype>(random() % below); };
        const auto any_of = [&any](const auto& list) { return list[any(list.size())]; };
        static const QList<EditCommand> kCommands{
            kBold,          kItalic,      kOrderedList,  kUnorderedList, kIndent, kOutdent,
            kJustifyCenter, kInsertTable, kBringForward, kLockElement,   kCut,    kUnlink,
            kHyperlink,     kSendToBack,  kUndo,         kSelectAll,     kDelete};
        static const QList<Qt::Key> kKeys{Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Tab, Qt::Key_Down};
        static const QList<Qt::Key> kMoves{Qt::Key_Left, Qt::Key_Right, Qt::Key_Escape, Qt::Key_Delete};
        static const QStringList kForeign{u"<p>foreign <b>bold</b></p><ul><li>i1<li>i2</ul>"_s,
                                          u"<a href=\"http://x/\">in</a>"_s, QString()};
        const auto place_anywhere = [&] { place_caret(any(1000), any(3) ? 0 : any(60)); };
        const QList<std::function<void()>> deeds{
            [&] { type(QString(u"ab c"_s).first(1 + any(4))); },
            [&] { key(any_of(kKeys)); },
            place_anywhere,
            place_anywhere,
            [&] { editor_.select_element(any(2) ? u"pos"_s : u"flow"_s); },
            [&] { key(any_of(kMoves)); },
            [&] { paste(any_of(kForeign)); },
            [&] { editor_.replace_selection_parent(u"<P>rp <A href=\"p.htm\">x</A></P>"_s); },
            [&] { editor_.execute(any_of(kCommands)); }};
        any_of(deeds)();
    }

    /// Puts the caret into a letter of the text, or selects from there over `length` letters.
    void place_caret(qsizetype seed, qsizetype length) {
        evaluate(
            uR"((() => {
            const texts = [], walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
            for (let n = walker.nextNode(); n; n = walker.nextNode()) texts.push(n);
            if (!texts.length) return;
            let at = %1 % texts.length, offset = %1 % (texts[at].data.length + 1), end = at, left = %2 + offset;
            while (left > texts[end].data.length && end + 1 < texts.length) left -= texts[end++].data.length;
            pondera.selection.select(null);
            getSelection().setBaseAndExtent(texts[at], offset, texts[end], Math.min(left, texts[end].data.length));
        })())"_s.arg(seed)
                .arg(length));
    }

    void paste(const QString& html) {
        put_on_clipboard(html, u"line 1\nline 2"_s);
        editor_.execute(EditCommand::kPaste);
    }
};

TEST_F(History, WhateverIsDoneComesBackAndGoesAgainByteForByte) {
    make_picture(u"a.png"_s, {60, 40});
    for (unsigned seed = 1; seed <= 25; ++seed) {
        std::mt19937 random(seed);
        load(kPage);
        const QString start = editor_.text();
        for (int i = 0; i < 8; ++i) do_anything(random);
        while (editor_.execute(EditCommand::kRedo)) {
        }
        const QString last = editor_.text();
        QStringList texts{last};
        while (editor_.execute(EditCommand::kUndo)) texts += editor_.text();
        ASSERT_EQ(texts.takeLast(), start) << "seed " << seed;
        for (const QString& text : texts | std::views::reverse) {
            ASSERT_TRUE(editor_.execute(EditCommand::kRedo));
            ASSERT_EQ(editor_.text(), text) << "seed " << seed;
        }
        load(last);
        ASSERT_EQ(editor_.text(), last) << "read again, seed " << seed;
    }
}

TEST_F(History, ANewStepEndsWhatCouldBeRedone) {
    load_selected(u"<p>one|</p>"_s);
    for (const QString& word : {u"x"_s, u"y"_s}) {
        type(word);
        EXPECT_FALSE(editor_.execute(EditCommand::kRedo));
        EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
        EXPECT_EQ(text(), u"<P>one</P>"_s);
    }
    EXPECT_FALSE(editor_.execute(EditCommand::kUndo));
    const QString before = editor_.text();
    type(u"x"_s);
    paste(u"<b>y</b>"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(text(), u"<P>onex</P>"_s) << "what was typed is a step of its own";
    undo_to(before);
}

TEST_F(History, BoxesKeepTheirBorders) {
    const QString box = u"<DIV name=bx style=\"POSITION: absolute; LEFT: 90px; TOP: 90px\">%1</DIV>"_s;
    const std::vector<std::tuple<QString, Qt::Key, QString>> cases{
        {u"<P>before|</P>%1<P>after</P>"_s.arg(box.arg(u"words"_s)), Qt::Key_Delete, u"<P>beforeafter</P>"_s},
        {u"<P>before</P>%1"_s.arg(box.arg(u"|words"_s)), Qt::Key_Backspace, u"words</DIV>"_s},
        {box.arg(u"words|"_s) + u"<P>after</P>"_s, Qt::Key_Delete, u"words</DIV>"_s},
        {u"<P>before</P>%1<P>|after</P>"_s.arg(box.arg(u"words"_s)), Qt::Key_Backspace, u"<P>beforeafter</P>"_s},
        {box.arg(u"words| here"_s), Qt::Key_Return, u"words<BR>&nbsp;here</DIV>"_s},
    };
    for (const auto& [page, pressed, expected] : cases) {
        load_selected(page);
        key(pressed);
        EXPECT_EQ(text().count(u"<DIV"_s), 1) << page.toStdString();
        EXPECT_TRUE(text().contains(expected)) << page.toStdString() << ": " << text().toStdString();
    }
}

TEST_F(History, BlocksAndLinksThatCannotStandWithinOthersAreParted) {
    for (const auto& [page, command] : {std::pair{u"<p>one<br>[two]<br>three</p>"_s, EditCommand::kJustifyCenter},
                                        {u"<p>one <a href=x>[two]</a> three</p>"_s, EditCommand::kInsertTable}}) {
        load_selected(page);
        EXPECT_TRUE(editor_.execute(command, u"1x1"_s));
        const QString text = editor_.text();
        load(text);
        EXPECT_EQ(editor_.text(), text);
    }
    load_selected(u"<p>one <a href=x>two [words]</a></p>"_s);
    paste(u"<a href=\"http://y/\">in</a>"_s);
    EXPECT_EQ(text(), u"<P>one <A href=\"x\">two&nbsp;</A><A href=\"http://y/\">in</A></P>"_s);
}

}  // namespace pondera
