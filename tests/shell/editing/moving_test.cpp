#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

constexpr QPoint kInside(130, 120);  // inside the picture that stands at 100, 100

/// A page with a picture at 100, 100.
class Moving : public EditingFixture {
  protected:
    void SetUp() override {
        EditingFixture::SetUp();
        make_picture(u"a.png"_s, {60, 40});
        load_body(picture(u"a"_s, 100, 100));
        before_ = editor_.text();
    }

    static QString picture(const QString& name, int left, int top, const QString& level = u"5"_s) {
        return u"<IMG name=%1 src=\"a.png\" style=\"Z-INDEX: %2; LEFT: %3px; POSITION: absolute; TOP: %4px\">"_s
            .arg(name, level)
            .arg(left)
            .arg(top);
    }

    SelectedElement selected() { return editor_.selection().element.value_or(SelectedElement()); }
    QRect box() { return selected().box; }

    // The box of a named element on the page, whatever it is placed by.
    QRect shown(const QString& name) {
        const QString script =
            uR"((() => {
            const r = document.querySelector("[name=%1]").getBoundingClientRect();
            return [r.left, r.top, r.width, r.height].map(Math.round);
        })())"_s;
        const QVariantList r = evaluate(script.arg(name)).toList();
        return {r.value(0).toInt(), r.value(1).toInt(), r.value(2).toInt(), r.value(3).toInt()};
    }

    QString before_;
};

TEST_F(Moving, AClickSelectsAndDescribesTheElement) {
    load_body(u"<p>text</p><a href=\"x.htm\">"_s + picture(u"logo"_s, 100, 100) + u"</a>"_s);
    EXPECT_EQ(editor_.status(EditCommand::kHyperlink), CommandStatus::kDisabled);
    click(kInside);
    EXPECT_EQ(selected().name, u"logo"_s);
    EXPECT_EQ(box(), QRect(100, 100, 60, 40));
    EXPECT_EQ(selected().z_index, u"5"_s);
    EXPECT_EQ(selected().parent_outer_html, u"<A href=\"x.htm\">"_s + picture(u"logo"_s, 100, 100) + u"</A>"_s);
    EXPECT_EQ(editor_.status(EditCommand::kHyperlink), CommandStatus::kEnabled);
    EXPECT_FALSE(editor_.modified());
    key(Qt::Key_Escape);
    EXPECT_EQ(editor_.selection().type, SelectionType::kNone);
}

TEST_F(Moving, DraggingMovesByWhatTheMouseMoved) {
    drag(kInside, kInside + QPoint(57, 213), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(157, 313));
    EXPECT_EQ(body(), picture(u"a"_s, 157, 313));
    undo_to(before_);

    load_body(
        u"<img src=a.png style=\"position: absolute; left: 100; top: 100; filter: blendTrans(duration=3); z-index: 1010\">"_s);
    drag(kInside, kInside + QPoint(10, 0), Qt::AltModifier);
    EXPECT_THAT(body(),
                Holds(u"Z-INDEX: 1010; POSITION: absolute; LEFT: 110px; TOP: 100px; FILTER: blendTrans(duration=3)"_s))
        << "unit-less places and foreign properties";
}

TEST_F(Moving, WhateverPlacesAnElementItFollowsTheMouseWithinThePageAndKeepsItsSize) {
    constexpr QPoint kBy(-40, 30);
    const QString box = u"<div style='position:absolute; left:200px; top:100px; width:400px; height:300px; %1'>"_s;
    const std::vector<std::tuple<QString, QString, QPoint, QPoint>> cases{
        {u""_s, u"right:300px; top:100px"_s, kBy, kBy},
        {u""_s, u"left:20%; right:200px; bottom:300px"_s, kBy, kBy},
        {u""_s, u"left:50px; left:300px; top:100px"_s, kBy, kBy},
        {u""_s, u"left:300px !important; top:100px; left:50px"_s, kBy, kBy},
        {u"<style>[name=e] { right:200px; top:100px }</style>"_s, u""_s, kBy, kBy},
        {box.arg(u"transform:scale(0.5)"_s), u"left:80px; top:40px"_s, kBy, kBy},
        {u"<div dir=rtl>"_s, u"left:300px; right:100px; top:100px; width:80px"_s, kBy, kBy},
        {u"<div style='height:2000px'></div>"_s, u"position:fixed; left:300px; top:100px"_s, kBy, kBy},
        {u""_s, u"left:-20px; top:10px"_s, {5, 5}, {5, 5}},
        {u""_s, u"left:-20px; top:10px"_s, {-9, -50}, {0, -10}},
        {box.arg(u""_s), u"left:20px; top:20px"_s, {-50, -200}, {-50, -120}},
        {u"<style>body { position:relative; margin:0 200px }</style>"_s, u"left:10px"_s, {-60, 0}, {-60, 0}},
    };
    for (const auto& [page, style, by, moved] : cases) {
        load_body(page + u"<div name=e style='position:absolute; background:lime; %1'>some words</div>"_s.arg(style));
        const QRect before = shown(u"e"_s);
        drag(before.center(), before.center() + by, Qt::AltModifier);
        const QRect after = shown(u"e"_s).translated(-moved);
        EXPECT_LE((after.topLeft() - before.topLeft()).manhattanLength(), 2) << qPrintable(page + style);
        EXPECT_LE(std::abs(after.width() - before.width()) + std::abs(after.height() - before.height()), 2);
    }
}

TEST_F(Moving, OnlyTheHeldLeftButtonDragsAndEscapePutsBack) {
    click(kInside);
    QTest::mousePress(&view(), Qt::RightButton, {}, {160, 120});
    move_mouse({250, 120}, Qt::RightButton);
    QTest::mouseRelease(&view(), Qt::RightButton, {}, {250, 120});
    settle();
    EXPECT_EQ(editor_.text(), before_);
    for (const bool escape : {true, false}) {
        QTest::mousePress(&view(), Qt::LeftButton, {}, kInside);
        move_mouse({230, 220}, Qt::LeftButton);
        const QString dragged = editor_.text();
        EXPECT_NE(dragged, before_);
        escape ? key(Qt::Key_Escape) : move_mouse({400, 400}, Qt::NoButton);  // let go outside of the window
        EXPECT_EQ(editor_.text(), escape ? before_ : dragged);
        QTest::mouseRelease(&view(), Qt::LeftButton, {}, {400, 400});
        settle();
        EXPECT_EQ(editor_.execute(EditCommand::kUndo), !escape);
    }
}

TEST_F(Moving, HeldAtTheEdgeItScrollsOn) {
    load_body(u"<div style='height:3000px'></div>"_s + picture(u"a"_s, 100, 100));
    QTest::mousePress(&view(), Qt::LeftButton, {}, kInside);
    move_mouse({130, 400}, Qt::LeftButton);
    move_mouse({130, 695}, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return evaluate(u"scrollY"_s).toInt() > 150; }, 10000));
    QTest::mouseRelease(&view(), Qt::LeftButton, {}, {130, 695});
    settle();
    EXPECT_NEAR(shown(u"a"_s).top(), 675, 6);
    const QString left = editor_.text();
    QTest::qWait(100);
    EXPECT_EQ(editor_.text(), left);
    click({895, 300});
    EXPECT_EQ(selected().tag, u"IMG"_s) << "a click on the scroll bar deselects";
}

TEST_F(Moving, FramesAndPlayersAreSelectedNotWorked) {
    ASSERT_TRUE(write_file(path(u"inner.htm"_s), "<a href=other.htm><h1>away</h1><h1>away</h1></a>"));
    load_body(
        u"<noscript><h1>No scripts</h1></noscript><p name=p>text</p>"
        "<iframe src=inner.htm style='position:absolute; left:100px; top:100px; width:200px; height:100px'></iframe>"
        "<video controls style='position:absolute; left:400px; top:100px; width:200px; height:100px'></video>"_s +
        picture(u"over"_s, 110, 110));
    EXPECT_LT(shown(u"p"_s).top(), 20) << "NOSCRIPT is shown";
    EXPECT_TRUE(body().contains(u"No scripts"_s));
    for (const auto& [place, tag] : {std::pair{QPoint(190, 170), u"IFRAME"_s},
                                     {QPoint(430, 185), u"VIDEO"_s},
                                     {QPoint(130, 120), u"IMG"_s},
                                     {QPoint(20, 15), QString()}}) {
        click(place, 2);
        EXPECT_EQ(selected().tag, tag);
    }
    key(Qt::Key_F6);
    EXPECT_EQ(selected().tag, u"IFRAME"_s);
    EXPECT_FALSE(editor_.modified());
}

TEST_F(Moving, HandlesWorkOnTinyPicturesAndAgainstThePagesRulesAboutStyles) {
    make_picture(u"dot.png"_s, {8, 8});
    load_body(u"<img name=e src=dot.png style='position:absolute; left:100px; top:100px'>"_s);
    drag({101, 101}, {121, 101}, Qt::AltModifier);
    drag({126, 106}, {146, 106}, Qt::AltModifier);  // it has handles now
    EXPECT_EQ(shown(u"e"_s), QRect(140, 100, 8, 8));
    load(
        u"<head><meta http-equiv=Content-Security-Policy content=\"default-src 'self'\"></head>"
        "<body><img name=a src=a.png width=60 height=40>"_s);
    click({30, 20});
    drag({68, 28}, {98, 28}, Qt::AltModifier);
    EXPECT_EQ(shown(u"a"_s), QRect(8, 8, 90, 40));
}

TEST_F(Moving, SnapsToOthersUnlessAltIsHeld) {
    load_body(picture(u"a"_s, 100, 100) + picture(u"b"_s, 300, 300));
    drag(kInside, kInside + QPoint(0, 196));
    EXPECT_EQ(box().topLeft(), QPoint(100, 300));
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    drag(kInside, kInside + QPoint(0, 196), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(100, 296));
    drag({130, 316}, {280, 318}, Qt::ShiftModifier);
    EXPECT_EQ(box().top(), 296) << "Shift holds the other axis";
}

TEST_F(Moving, HandlesSizeCornersInProportion) {
    click(kInside);
    drag({160, 120}, {190, 120}, Qt::AltModifier);
    EXPECT_EQ(box(), QRect(100, 100, 90, 40));
    drag({190, 140}, {280, 140}, Qt::AltModifier);
    EXPECT_EQ(box(), QRect(100, 100, 180, 80));
    drag({100, 100}, {110, 120}, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(box(), QRect(110, 120, 170, 60));
    drag({280, 180}, {195, 180}, Qt::AltModifier);
    EXPECT_EQ(box(), QRect(110, 120, 85, 30));
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(body(), picture(u"a"_s, 100, 100));
}

TEST_F(Moving, ArrowKeysNudgeAndAreOneStep) {
    click(kInside);
    key(Qt::Key_Right);
    key(Qt::Key_Right);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(box().topLeft(), QPoint(102, 110));
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(box().topLeft(), QPoint(100, 100));
    EXPECT_FALSE(editor_.modified());
}

TEST_F(Moving, ALockedElementStays) {
    click(kInside);
    EXPECT_TRUE(editor_.execute(EditCommand::kLockElement));
    EXPECT_EQ(editor_.status(EditCommand::kLockElement), CommandStatus::kLatched);
    const QString locked = editor_.text();
    drag(kInside, kInside + QPoint(50, 50));
    drag({160, 140}, {200, 200});
    key(Qt::Key_Right);
    EXPECT_EQ(editor_.text(), locked);
    click(kInside);
    EXPECT_TRUE(editor_.execute(EditCommand::kLockElement));
    drag(kInside, kInside + QPoint(50, 50), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(150, 150));
}

TEST_F(Moving, APictureInTheTextGetsAPlaceOfItsOwn) {
    load_body(u"<p><img src=a.png name=flow> text</p>"_s);
    const QPoint from(20, 30);
    click(from);
    EXPECT_EQ(editor_.status(EditCommand::kMakeAbsolute), CommandStatus::kEnabled);
    const QPoint before = box().topLeft();
    drag(from, from + QPoint(100, 100), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), before + QPoint(100, 100));
    EXPECT_EQ(editor_.status(EditCommand::kMakeAbsolute), CommandStatus::kLatched);
}

TEST_F(Moving, LevelsChangeOnTheirSideOfTheText) {
    using enum EditCommand;
    const QHash<QString, EditCommand> commands{{u"forward"_s, kBringForward}, {u"backward"_s, kSendBackward},
                                               {u"front"_s, kBringToFront},   {u"back"_s, kSendToBack},
                                               {u"above"_s, kBringAboveText}, {u"below"_s, kSendBelowText}};
    expect_results(
        [&](const QString& row) {  // the levels of a, b and c, and what is done with one of them
            const QStringList words = row.split(u' ');
            load_body(picture(u"a"_s, 10, 10, words[0]) + picture(u"b"_s, 110, 10, words[1]) +
                      picture(u"c"_s, 210, 10, words[2]));
            editor_.select_element(words[3]);
            EXPECT_TRUE(editor_.execute(commands[words[4]]));
            QStringList levels;
            for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
                levels += editor_.select_element(name) ? selected().z_index : u"(gone)"_s;
            return levels.join(u' ');
        },
        {u"5 7 9 a forward → 7 5 9", u"5 5 5 a forward → 6 5 6", u"7 7 5 c forward → 5 8 7", u"5 7 9 c front → 5 7 9",
         u"5 7 9 b front → 5 10 9", u"5 7 9 b back → 5 4 9", u"1 2 9 c back → 2 2 1", u"-1 -1 4 a forward → -1 -2 4",
         u"-1 -1 4 b backward → -1 -2 4", u"-3 -1 4 a front → -1 -2 4", u"-3 -1 4 b back → -3 -4 4",
         u"830 -5 4 a above → 830 -5 4", u"830 -5 4 b below → 830 -5 4", u"830 -5 4 a below → -830 -5 4",
         u"830 -5 4 b above → 830 5 4"});
}

TEST_F(Moving, PastedAtEndIsSelectedAndReplacedInPlace) {
    load_body(u"<p>text</p>"_s);
    editor_.paste_at_end(picture(u"new"_s, 10, 10));
    EXPECT_EQ(selected().name, u"new"_s);
    EXPECT_TRUE(body().endsWith(picture(u"new"_s, 10, 10)));
    EXPECT_TRUE(editor_.replace_selected_element(u"<A href=\"x.htm\">"_s + picture(u"new"_s, 30, 30) + u"</A>"_s));
    EXPECT_EQ(selected().parent_tag, u"A"_s);
    key(Qt::Key_Delete);
    EXPECT_EQ(body(), u"\n<P>text</P>"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(selected().box.topLeft(), QPoint(30, 30));
}

TEST_F(Moving, TextGoesIntoNoFieldAndIntoABoxAfterADoubleClick) {
    const QString box = u"<div style=\"position:absolute; left:100; top:100; width:200; height:80\">words</div>"_s;
    load_body(u"<p><input name=field value=v> text</p>"_s + box);
    for (const QPoint place : {QPoint(30, 18), kInside}) {
        click(place);
        EXPECT_EQ(selected().tag, place == kInside ? u"DIV"_s : u"INPUT"_s);
        type(u"x"_s);
        EXPECT_FALSE(editor_.modified());
    }
    click({110, 110}, 2);
    type(u"x"_s);
    EXPECT_TRUE(editor_.modified());
    EXPECT_EQ(editor_.selection().type, SelectionType::kNone);
}

}  // namespace pondera
