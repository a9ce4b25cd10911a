#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

class Links : public EditingFixture {
  protected:
    void load_body(const QString& markup) { load(u"<html><head></head><body>"_s + markup + u"</body></html>"_s); }

    /// Loads a body in which "[" and "]" stand at the ends of the selection ("|": the caret), and selects that.
    void load_selected(const QString& markup) {
        load_body(markup);
        evaluate(
            uR"((() => {
            const place = mark => {
                const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
                for (let n = walker.nextNode(); n; n = walker.nextNode()) {
                    const at = n.data.indexOf(mark);
                    if (at < 0) continue;
                    n.deleteData(at, 1);
                    if (n.data) return [n, at];
                    const own = [n.parentNode, [...n.parentNode.childNodes].indexOf(n)];
                    n.remove();
                    return own;
                }
            };
            const from = place("|") || place("["), to = place("]") || from;
            getSelection().setBaseAndExtent(...from, ...to);
            pondera.history.reset();
        })())"_s);
        settle();
    }

    /// The body without the line breaks that its spelling puts before blocks.
    QString text() { return body().remove(u'\n'); }

    void expect_undone(const QString& before) {
        const QString after = text();
        EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
        EXPECT_EQ(text(), before) << "one step";
        EXPECT_TRUE(editor_.execute(EditCommand::kRedo));
        EXPECT_EQ(text(), after);
    }
};

TEST_F(Links, ALinkKeepsThePageWhole) {
    struct {
        QString page, linked;
    } const cases[]{
        {u"<p>a <b>[b</b> c] d</p>"_s, u"<P>a <A href=\"x.htm\"><B>b</B> c</A> d</P>"_s},
        {u"<p>a <b>b[b</b> c] d</p>"_s, u"<P>a <B>b</B><A href=\"x.htm\"><B>b</B> c</A> d</P>"_s},
        {u"<p>[one</p><p>two <i>th]ree</i></p>"_s,
         u"<P><A href=\"x.htm\">one</A></P><P><A href=\"x.htm\">two <I>th</I></A><I>ree</I></P>"_s},
        {u"<ul><li>[one<li>two]</ul><p>x</p>"_s,
         u"<UL><LI><A href=\"x.htm\">one</A></LI><LI><A href=\"x.htm\">two</A></LI></UL><P>x</P>"_s},
        {u"<div>[one<ul><li>two</li></ul>three]</div>"_s,
         u"<DIV><A href=\"x.htm\">one</A><UL><LI><A href=\"x.htm\">two</A></LI></UL><A href=\"x.htm\">three</A></DIV>"_s},
        {u"<table><tr><td>[1<td> <td><b>2</b>]</table>"_s,
         u"<TABLE><TBODY><TR><TD><A href=\"x.htm\">1</A></TD><TD> </TD><TD><B><A href=\"x.htm\">2</A></B></TD></TR></TBODY></TABLE>"_s},
        {u"<p>o[ne <a href=old.htm>two</a> thr]ee</p>"_s, u"<P>o<A href=\"x.htm\">ne two thr</A>ee</P>"_s},
        {u"<p><a href=old.htm>one t[wo</a> thr]ee</p>"_s,
         u"<P><A href=\"old.htm\">one t</A><A href=\"x.htm\">wo thr</A>ee</P>"_s},
        {u"<p><a href=old.htm><b>one t[wo</b></a></p><p>thr]ee</p>"_s,
         u"<P><A href=\"old.htm\"><B>one t</B></A><A href=\"x.htm\"><B>wo</B></A></P><P><A href=\"x.htm\">thr</A>ee</P>"_s},
        {u"<p><a href=old.htm>o|ne</a> two</p>"_s, u"<P><A href=\"x.htm\">one</A> two</P>"_s},
        {u"<p><a name=here>o[ne] two</a></p>"_s, u"<P><A name=here></A>o<A href=\"x.htm\">ne</A> two</P>"_s},
        {u"<p>[one <a id=here></a>two]</p>"_s, u"<P><A id=here></A><A href=\"x.htm\">one two</A></P>"_s},
        {u"<p>[one <img src=a.png>]</p>"_s, u"<P><A href=\"x.htm\">one <IMG src=\"a.png\" border=0></A></P>"_s},
        {u"<p>[one</p><div style=\"position:absolute\">box</div><p>two]</p>"_s,
         u"<P><A href=\"x.htm\">one</A></P><DIV style=\"POSITION: absolute\">box</DIV><P><A href=\"x.htm\">two</A></P>"_s},
    };
    for (const auto& [page, linked] : cases) {
        load_selected(page);
        const QString before = text();
        EXPECT_TRUE(editor_.execute(EditCommand::kHyperlink, u"x.htm"_s)) << page.toStdString();
        EXPECT_EQ(text(), linked) << page.toStdString();
        expect_undone(before);
        const QString spelled = editor_.text();
        load(spelled);
        EXPECT_EQ(editor_.text(), spelled) << "comes back as it was written";
    }
}

TEST_F(Links, RemoveLinkTakesWholeLinksAndLeavesTheirPlaces) {
    struct {
        QString page, unlinked;
    } const cases[]{
        {u"<p>a <a href=x.htm>o|ne <b>two</b></a></p>"_s, u"<P>a one <B>two</B></P>"_s},
        {u"<p><a href=x.htm>o[ne</a> and <a href=y.htm>tw]o</a> <a href=z.htm>three</a></p>"_s,
         u"<P>one and two <A href=\"z.htm\">three</A></P>"_s},
        {u"<p><a id=top href=x.htm>o|ne</a></p>"_s, u"<P><A id=top>one</A></P>"_s},
    };
    for (const auto& [page, unlinked] : cases) {
        load_selected(page);
        const QString before = text();
        EXPECT_TRUE(editor_.execute(EditCommand::kUnlink));
        EXPECT_EQ(text(), unlinked);
        EXPECT_EQ(editor_.status(EditCommand::kUnlink), CommandStatus::kDisabled);
        expect_undone(before);
    }
    load_selected(u"<p>a <a name=x>o|ne</a></p>"_s);
    EXPECT_EQ(editor_.status(EditCommand::kUnlink), CommandStatus::kDisabled) << "a place is no link";
    EXPECT_EQ(editor_.status(EditCommand::kHyperlink), CommandStatus::kDisabled);
}

TEST_F(Links, AnElementAndTheLinksInIt) {
    load_body(
        u"<div name=box style=\"position:absolute; left:5px; top:5px\"><p>one <a href=o.htm>two</a></p></div>"
        "<p><img name=pic src=a.png></p>"_s);
    for (const QString& name : {u"box"_s, u"pic"_s}) {
        ASSERT_TRUE(editor_.select_element(name));
        EXPECT_TRUE(editor_.execute(EditCommand::kHyperlink, u"x.htm"_s));
        EXPECT_EQ(editor_.selection().element->name, name) << "still selected";
    }
    EXPECT_EQ(
        text(),
        u"<A href=\"x.htm\"><DIV name=box style=\"POSITION: absolute; LEFT: 5px; TOP: 5px\"><P>one two</P></DIV></A>"
        "<P><A href=\"x.htm\"><IMG name=pic src=\"a.png\" border=0></A></P>"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kUnlink));
    EXPECT_TRUE(text().endsWith(u"<P><IMG name=pic src=\"a.png\" border=0></P>"_s));
}

TEST_F(Links, PlacesAreListedAndAHeadingGetsANameWithTheLink) {
    load_selected(
        u"<h1>Our  <i>trips</i></h1><p><a name=sea></a>By the sea</p><h2><a name=mountain>Up</a></h2><h3> </h3>"
        "<p><a href=\"javascript:esempio('_x_a.htm')\" name=pop>p</a> [read] <span id=DEX></span>on</p>"_s);
    QStringList places;
    for (const PagePlace& place : editor_.places())
        places += u"%1 %2 %3"_s.arg(place.heading).arg(place.name, place.text);
    EXPECT_EQ(places.join(u'|'), u"1  Our trips|0 sea By the sea|2 mountain Up|0 DEX on"_s);
    const QString before = text();
    EXPECT_TRUE(editor_.link_to_place(0, u"Our-trips"_s));
    EXPECT_TRUE(text().startsWith(u"<H1 id=Our-trips>"_s)) << text().toStdString();
    EXPECT_TRUE(text().contains(u"<A href=\"#Our-trips\">read</A>"_s));
    expect_undone(before);
    EXPECT_TRUE(editor_.link_to_place(2, u"unused"_s));
    EXPECT_TRUE(text().contains(u"<A href=\"#mountain\">read</A>"_s)) << text().toStdString();
    EXPECT_FALSE(editor_.link_to_place(9, u"x"_s));
}

TEST_F(Links, PlacesAreNamedRenamedAndTakenAway) {
    struct {
        QString page, named, renamed;
    } const cases[]{
        {u"<p>one| two</p>"_s, u"<P>one<A id=n></A> two</P>"_s, u"<P>one<A id=m></A> two</P>"_s},
        {u"<p>one [two <b>three]</b></p>"_s, u"<P>one <A id=n>two <B>three</B></A></P>"_s,
         u"<P>one <A id=m>two <B>three</B></A></P>"_s},
        {u"<p>[one</p><p>two]</p>"_s, u"<P><A id=n></A>one</P><P>two</P>"_s, u"<P><A id=m></A>one</P><P>two</P>"_s},
        {u"<p><a href=x.htm>o|ne</a></p>"_s, u"<P><A href=\"x.htm\" id=n>one</A></P>"_s,
         u"<P><A href=\"x.htm\" id=m>one</A></P>"_s},
        {u"<p>[one <a href=x.htm>two]</a></p>"_s, u"<P><A id=n></A>one <A href=\"x.htm\">two</A></P>"_s,
         u"<P><A id=m></A>one <A href=\"x.htm\">two</A></P>"_s},
    };
    for (const auto& [page, named, renamed] : cases) {
        load_selected(page + u"<p><a href=\"#n\">to</a></p>"_s);
        const QString before = text(), link = u"<P><A href=\"#%1\">to</A></P>"_s;
        EXPECT_EQ(editor_.place_name(), QString());
        EXPECT_TRUE(editor_.set_place_name(u"n"_s));
        EXPECT_EQ(text(), named + link.arg(u"n"_s)) << page.toStdString();
        EXPECT_EQ(editor_.place_name(), u"n"_s) << page.toStdString();
        expect_undone(before);
        EXPECT_TRUE(editor_.set_place_name(u"m"_s));
        EXPECT_EQ(text(), renamed + link.arg(u"m"_s));
        EXPECT_TRUE(editor_.set_place_name({}));
        EXPECT_EQ(text(), before.left(before.lastIndexOf(u"<P>"_s)) + link.arg(u"m"_s)) << "the link keeps its address";
    }
    load_selected(u"<h2 id=n>o|ne</h2>"_s);
    EXPECT_EQ(editor_.place_name(), u"n"_s);
    EXPECT_TRUE(editor_.set_place_name({}));
    EXPECT_EQ(text(), u"<H2>one</H2>"_s);
    EXPECT_FALSE(editor_.set_place_name({}));
}

TEST_F(Links, TypingBesideAPlaceLeavesItWhereItIs) {
    load_selected(u"<p>one |two</p>"_s);
    ASSERT_TRUE(editor_.set_place_name(u"n"_s));
    type(u"x"_s);
    key(Qt::Key_Backspace);
    type(u"yz"_s);
    EXPECT_EQ(text(), u"<P>one yz<A id=n></A>two</P>"_s);
    EXPECT_FALSE(editor_.text().contains(u"before"_s)) << "the mark is no part of the text";
    EXPECT_EQ(evaluate(u"getComputedStyle(document.querySelector('#n'), '::before').position"_s).toString(),
              u"absolute"_s);
}

TEST_F(Links, AnAddressIsShownWhereItStands) {
    make_picture(u"a.png"_s, {60, 40});
    load(
        u"<html><head><link rel=stylesheet href=none.css><script>var p = 'gone.gif';</script></head><body "
        "background=back.gif><p><a href=gone.htm>first</a> <a href=gone.htm>second</a> <a href=g.htm><img "
        "src=a.png></a>"
        "</p><div style=\"height:3000px\"></div><p onclick=\"go('gone.htm')\" style=\"background:url(b.gif)\">third</p>"
        "<img name=pos src=lost.gif style=\"position:absolute; left:10px; top:4000px\"></body></html>"_s);
    struct {
        QString address;
        int number;
        AddressShown shown;
        QString selected;
    } const cases[]{
        {u"gone.htm"_s, 0, AddressShown::kShown, u"first"_s}, {u"gone.htm"_s, 1, AddressShown::kShown, u"second"_s},
        {u"gone.htm"_s, 2, AddressShown::kShown, u"third"_s}, {u"gone.htm"_s, 3, AddressShown::kMissing, {}},
        {u"b.gif"_s, 0, AddressShown::kShown, u"third"_s},    {u"lost.gif"_s, 0, AddressShown::kShown, u"pos"_s},
        {u"none.css"_s, 0, AddressShown::kHidden, {}},        {u"gone.gif"_s, 0, AddressShown::kHidden, {}},
        {u"back.gif"_s, 0, AddressShown::kHidden, {}},        {u"gone"_s, 0, AddressShown::kMissing, {}},
    };
    for (const auto& [address, number, shown, selected] : cases) {
        EXPECT_EQ(editor_.show_address(address, number), shown) << address.toStdString() << number;
        if (shown != AddressShown::kShown) continue;
        const Selection selection = editor_.selection();
        EXPECT_EQ(selection.element ? selection.element->name : selection.text, selected) << address.toStdString();
    }
    EXPECT_EQ(editor_.show_address(u"g.htm"_s, 0), AddressShown::kShown);
    EXPECT_EQ(editor_.selection().element.value_or(SelectedElement()).src, u"a.png"_s);
    editor_.show_address(u"lost.gif"_s, 0);
    EXPECT_GT(evaluate(u"scrollY"_s).toInt(), 3000);
    EXPECT_FALSE(editor_.modified());
}

}  // namespace

}  // namespace pondera
