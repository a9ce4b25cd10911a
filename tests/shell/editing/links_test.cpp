#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

using testing::AllOf;

class Links : public EditingFixture {
  protected:
    /// What a command makes of a selection, which is one step; links to x.htm are shown as "<X>".
    QString after(const QString& page, EditCommand command) {
        load_selected(page);
        const QString before = editor_.text();
        EXPECT_TRUE(editor_.execute(command, u"x.htm"_s)) << page.toStdString();
        QString made = text();
        undo_to(before);
        EXPECT_TRUE(editor_.execute(EditCommand::kRedo));
        const QString spelled = editor_.text();
        load(spelled);
        EXPECT_EQ(editor_.text(), spelled) << "comes back as it was written";
        return made.replace(u"A href=\"x.htm\""_s, u"X"_s);
    }
};

TEST_F(Links, ALinkKeepsThePageWhole) {
    expect_results(
        [this](const QString& page) { return after(page, EditCommand::kHyperlink); },
        {u"<p>a <b>[b</b> c] d</p> → <P>a <X><B>b</B> c</A> d</P>",
         u"<p>a <b>b[b</b> c] d</p> → <P>a <B>b</B><X><B>b</B> c</A> d</P>",
         u"<p>[one</p><p>two <i>th]ree</i></p> → <P><X>one</A></P><P><X>two <I>th</I></A><I>ree</I></P>",
         u"<ul><li>[one<li>two]</ul><p>x</p> → <UL><LI><X>one</A></LI><LI><X>two</A></LI></UL><P>x</P>",
         u"<div>[one<ul><li>two</ul>three]</div> → <DIV><X>one</A><UL><LI><X>two</A></LI></UL><X>three</A></DIV>",
         u"<table><tr><td>[1<td> <td><b>2</b>]</table>"
         u" → <TABLE><TBODY><TR><TD><X>1</A></TD><TD> </TD><TD><B><X>2</A></B></TD></TR></TBODY></TABLE>",
         u"<p>o[ne <a href=o>two</a> thr]ee</p> → <P>o<X>ne two thr</A>ee</P>",
         u"<p><a href=o>one t[wo</a> thr]ee</p> → <P><A href=\"o\">one t</A><X>wo thr</A>ee</P>",
         u"<p><a href=o><b>a[b</b></a></p><p>c]d</p>"
         u" → <P><A href=\"o\"><B>a</B></A><X><B>b</B></A></P><P><X>c</A>d</P>",
         u"<p><a href=o>o|ne</a> two</p> → <P><X>one</A> two</P>",
         u"<p><a name=here>o[ne] two</a></p> → <P><A name=here></A>o<X>ne</A> two</P>",
         u"<p><a href=o id=k>[one</a> two]</p> → <P><A id=k></A><X>one two</A></P>",
         u"<p>[one <a id=here></a>two]</p> → <P><A id=here></A><X>one two</A></P>",
         u"<p>[one <img src=a.png>]</p> → <P><X>one <IMG src=\"a.png\" border=0></A></P>",
         u"<p>[one</p><div style=\"position:fixed\">box</div><p>two]</p>"
         u" → <P><X>one</A></P><DIV style=\"POSITION: fixed\">box</DIV><P><X>two</A></P>"});
}

TEST_F(Links, RemoveLinkTakesWholeLinksAndLeavesTheirPlaces) {
    expect_results(
        [this](const QString& page) { return after(page, EditCommand::kUnlink); },
        {u"<p>a <a href=o>o|ne <b>two</b></a></p> → <P>a one <B>two</B></P>",
         u"<p><a href=o>o[ne</a> and <a href=y>tw]o</a> <a href=x.htm>three</a></p> → <P>one and two <X>three</A></P>",
         u"<p><a href=o id=top class=c>o|ne</a></p> → <P><A id=top class=c>one</A></P>"});
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
        "<p><a href=\"javascript:esempio('_x_a.htm')\" name=pop>p</a> [read] <span id=DEX></span>on</p>"
        "<a href=o.htm><img id=F_Dex src=f.gif></a>"_s);
    QStringList places;
    for (const PagePlace& place : editor_.places())
        places += u"%1 %2 %3"_s.arg(place.heading).arg(place.name, place.text);
    EXPECT_EQ(places.join(u'|'), u"1  Our trips|0 sea By the sea|2 mountain Up|0 DEX on"_s);
    const QString before = editor_.text();
    EXPECT_TRUE(editor_.link_to_place(0, u"Our-trips"_s));
    EXPECT_THAT(text(), AllOf(Holds(u"<H1 id=Our-trips>"_s), Holds(u"<A href=\"#Our-trips\">read</A>"_s)));
    undo_to(before);
    EXPECT_TRUE(editor_.link_to_place(2, u"unused"_s));
    EXPECT_THAT(text(), Holds(u"<A href=\"#mountain\">read</A>"_s));
    EXPECT_FALSE(editor_.link_to_place(9, u"x"_s));

    load_selected(u"<h1><a id=n>one[</a></h1><h2>]two</h2>"_s);
    EXPECT_FALSE(editor_.link_to_place(1, u"two"_s)) << "the end of a paragraph is nothing that can be a link";
    EXPECT_EQ(text(), u"<H1><A id=n>one</A></H1><H2>two</H2>"_s);
}

TEST_F(Links, PlacesAreNamedRenamedAndTakenAway) {
    const QString link = u"<P><A href=\"#%1\">to</A></P>"_s;
    expect_results(
        [&](const QString& page) {
            load_selected(page + u"<p><a href=\"#n\">to</a></p>"_s);
            const QString before = text();
            EXPECT_TRUE(editor_.set_place_name(u"n"_s));
            const QString named = text();
            EXPECT_EQ(editor_.place_name(), u"n"_s) << page.toStdString();
            EXPECT_TRUE(editor_.set_place_name(u"m"_s));
            EXPECT_EQ(text(), QString(named).replace(u"id=n"_s, u"id=m"_s).replace(u"#n"_s, u"#m"_s)) << "links follow";
            EXPECT_TRUE(editor_.set_place_name({}));
            EXPECT_EQ(text(), QString(before).replace(u"#n"_s, u"#m"_s));
            for (int step = 0; step < 3; ++step) EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
            EXPECT_EQ(text(), before);
            return named.chopped(link.size() - 1);
        },
        {u"<p>one| two</p> → <P>one<A id=n></A> two</P>",
         u"<p>one [two <b>three]</b></p> → <P>one <A id=n>two <B>three</B></A></P>",
         u"<p>[one</p><p>two]</p> → <P><A id=n></A>one</P><P>two</P>",
         u"<p><a href=o>o|ne</a></p> → <P><A href=\"o\" id=n>one</A></P>",
         u"<p>[one <a href=o>two]</a></p> → <P><A id=n></A>one <A href=\"o\">two</A></P>"});
    load_selected(u"<h2 id=n>o|ne</h2>"_s);
    EXPECT_EQ(editor_.place_name(), u"n"_s);
    EXPECT_TRUE(editor_.set_place_name({}));
    EXPECT_EQ(text(), u"<H2>one</H2>"_s);
    EXPECT_FALSE(editor_.set_place_name({}));
}

TEST_F(Links, APlaceStaysWhereItIsWhateverIsTypedBesideIt) {
    for (const QString& page : {u"<p>one|<a id=n></a>two</p>"_s, u"<p>one<a id=n></a>|two</p>"_s}) {
        load_selected(page);
        type(u"x"_s);
        for (const Qt::Key deleting : {Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_Delete}) key(deleting);
        EXPECT_EQ(text(), u"<P>on<A id=n></A>wo</P>"_s);
    }
    editor_.execute(EditCommand::kSelectAll);
    editor_.execute(EditCommand::kCopy);
    editor_.execute(EditCommand::kPaste);
    EXPECT_EQ(text().count(u"id=n"_s), 1);
    key(Qt::Key_End, Qt::ControlModifier);
    editor_.execute(EditCommand::kPaste);
    EXPECT_EQ(text().count(u"id=n"_s), 1) << "a copied place is no place of its own";
}

TEST_F(Links, AnAddressIsShownWhereItStands) {
    load(
        u"<head><link rel=stylesheet href=none.css><script>var p = 'gone.gif';</script></head><body "
        u"background=back.gif>"
        "<p><a href=gone.htm>first</a> <a href=gone.htm>second</a> <a href=g.htm><img name=inner src=a.png></a></p>"
        "<p onclick=\"go('gone.htm')\" style=\"background:url(b.gif)\">third</p><video name=film><source src=film.mp4>"
        "</video><img name=mapped usemap=#m><map name=m><area href=area.htm></map><map name=i><area "
        "href=idle.htm></map>"
        "<img name=pos src=lost.gif style=\"position:absolute; left:10px; top:4000px\">"_s);
    expect_results(
        [this](const QString& row) {
            const AddressShown shown = editor_.show_address(row.section(u' ', 0, 0), row.section(u' ', 1).toInt());
            if (shown == AddressShown::kMissing) return u"(missing)"_s;
            if (shown == AddressShown::kHidden) return u"(hidden)"_s;
            const Selection selection = editor_.selection();
            return selection.element ? selection.element->name : selection.text;
        },
        {u"gone.htm 0 → first", u"gone.htm 1 → second", u"gone.htm 2 → third", u"gone.htm 3 → (missing)",
         u"b.gif 0 → third", u"lost.gif 0 → pos", u"none.css 0 → (hidden)", u"gone.gif 0 → (hidden)",
         u"back.gif 0 → (hidden)", u"gone 0 → (missing)", u"area.htm 0 → mapped", u"idle.htm 0 → (hidden)",
         u"film.mp4 0 → film", u"g.htm 0 → inner"});
    editor_.show_address(u"lost.gif"_s, 0);
    EXPECT_GT(evaluate(u"scrollY"_s).toInt(), 3000);
    EXPECT_FALSE(editor_.modified());
}

}  // namespace pondera
