#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QWebEngineView>

#include <random>

#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kPage =
    u"<html><head><title>t</title></head><body bgcolor=white>\n<p>one two <b>bold</b> three <font "
    u"face=Arial>font</font> end</p>\n"
    "<p><a href=\"l.htm\">link text</a> and <img src=a.png name=flow> pic</p><ul><li>item a</li><li>item "
    "<i>b</i><ol><li>deep</li></ol></li></ul>"
    "<h2>Head</h2><table border=1><tr><td>c1</td><td><p>c2</p></td></tr><tr><td>c3</td><td>c4 "
    "<b>x</b></td></tr></table>"
    "<p>line1<br>line2 <i>it</i><br>line3</p>loose text<br>more\n<div style=\"Z-INDEX: 4; LEFT: 400px; WIDTH: 200px; "
    "POSITION: absolute; "
    "TOP: 300px\">box text<p>box p</p></div><a href=\"i.htm\"><img name=pos src=a.png style=\"Z-INDEX: 5; LEFT: 300px; "
    "POSITION: absolute; "
    "TOP: 100px\"></a><!-- c --><pre>pre\n text</pre></body></html>"_s;

class History : public EditingFixture {
  protected:
    /// One of the things that a person can do, anywhere on the page.
    void do_anything(std::mt19937& random) {
        const auto any = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
        static const QList<EditCommand> kCommands{
            EditCommand::kBold,          EditCommand::kItalic,      EditCommand::kOrderedList,
            EditCommand::kUnorderedList, EditCommand::kIndent,      EditCommand::kOutdent,
            EditCommand::kJustifyCenter, EditCommand::kInsertTable, EditCommand::kBringForward,
            EditCommand::kLockElement,   EditCommand::kCut,         EditCommand::kUnlink,
            EditCommand::kHyperlink,     EditCommand::kSendToBack,  EditCommand::kUndo,
            EditCommand::kSelectAll,     EditCommand::kDelete};
        switch (any(9)) {
            case 0:
                return type(QString(u"ab c"_s).first(1 + any(4)));
            case 1:
                return key(QList{Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Tab, Qt::Key_Down}[any(5)]);
            case 2:
            case 3:
                place_caret(any(1000), any(3) ? 0 : any(60));
                return;
            case 4:
                editor_.select_element(any(2) ? u"pos"_s : u"flow"_s);
                return;
            case 5:
                return key(QList{Qt::Key_Left, Qt::Key_Right, Qt::Key_Escape, Qt::Key_Delete}[any(4)]);
            case 6:
                paste(QStringList{u"<p>foreign <b>bold</b></p><ul><li>i1<li>i2</ul>"_s,
                                  u"<a href=\"http://x/\">in</a>"_s, QString()}[any(3)]);
                return;
            case 7:
                editor_.replace_selection_parent(u"<P>rp <A href=\"p.htm\">x</A></P>"_s);
                return;
            default:
                editor_.execute(kCommands[any(static_cast<int>(kCommands.size()))]);
        }
    }

    /// Puts the caret into a letter of the text, or selects from there over `length` letters.
    void place_caret(int seed, int length) {
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
        auto* data = new QMimeData;
        if (!html.isEmpty()) data->setHtml(html);
        data->setText(u"line 1\nline 2"_s);
        QApplication::clipboard()->setMimeData(data);
        editor_.execute(EditCommand::kPaste);
    }

    int undo_all() {
        int steps = 0;
        while (editor_.execute(EditCommand::kUndo)) ++steps;
        return steps;
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
        const int steps = undo_all();
        ASSERT_EQ(editor_.text(), start) << "seed " << seed;
        for (int i = 0; i < steps; ++i) ASSERT_TRUE(editor_.execute(EditCommand::kRedo));
        ASSERT_EQ(editor_.text(), last) << "seed " << seed;
        load(last);
        ASSERT_EQ(editor_.text(), last) << "read again, seed " << seed;
    }
}

TEST_F(History, BoxesKeepTheirBorders) {
    const struct {
        const char* caret;
        Qt::Key key;
        QString text;
    } cases[] = {
        {"document.querySelector('p').firstChild, 6", Qt::Key_Delete, u"<P>beforeafter</P>"_s},
        {"document.querySelector('div').firstChild, 0", Qt::Key_Backspace, u"words here</DIV>"_s},
        {"document.querySelector('div').firstChild, 10", Qt::Key_Delete, u"words here</DIV>"_s},
        {"document.querySelectorAll('p')[1].firstChild, 0", Qt::Key_Backspace, u"<P>beforeafter</P>"_s},
        {"document.querySelector('div').firstChild, 5", Qt::Key_Return, u"words<BR>&nbsp;here</DIV>"_s},
    };
    for (const auto& [caret, pressed, text] : cases) {
        load(
            u"<body><p>before</p><div name=bx style=\"POSITION: absolute; LEFT: 90px; TOP: 90px\">words here</div><p>after</p></body>"_s);
        evaluate(u"getSelection().collapse(%1)"_s.arg(QLatin1String(caret)));
        key(pressed);
        EXPECT_EQ(body().count(u"<DIV"_s), 1) << caret;
        EXPECT_TRUE(body().contains(text)) << caret << ": " << qPrintable(body());
    }
}

TEST_F(History, BlocksAndLinksThatCannotStandWithinOthersAreParted) {
    const struct {
        const char* page;
        EditCommand command;
        QVariant value;
    } cases[] = {
        {"one<br>two<br>three", EditCommand::kJustifyCenter, {}},
        {"one <a href=x>two</a> three", EditCommand::kInsertTable, u"1x1"_s},
    };
    for (const auto& [page, command, value] : cases) {
        load(u"<body><p>%1</p></body>"_s.arg(QLatin1String(page)));
        select_text(u"two"_s);
        EXPECT_TRUE(editor_.execute(command, value));
        const QString text = editor_.text();
        load(text);
        EXPECT_EQ(editor_.text(), text);
    }
    load(u"<body><p>one <a href=x>two words</a></p></body>"_s);
    select_text(u"words"_s);
    paste(u"<a href=\"http://y/\">in</a>"_s);
    EXPECT_EQ(body(), u"\n<P>one <A href=\"x\">two&nbsp;</A><A href=\"http://y/\">in</A></P>"_s);
}

}  // namespace

}  // namespace pondera
