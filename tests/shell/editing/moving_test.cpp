#include <QTest>
#include <QWebEngineView>

#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QPoint kInside(130, 120);  // inside the picture that stands at 100, 100

class Moving : public EditingFixture {
  protected:
    void SetUp() override {
        EditingFixture::SetUp();
        make_picture(u"a.png"_s, {60, 40});
    }

    void load_elements(const QString& markup) { load(u"<html><head></head><body>"_s + markup + u"</body></html>"_s); }

    QString picture(const QString& name, int left, int top, const QString& more = u"Z-INDEX: 5; "_s) {
        return u"<IMG name=%1 src=\"a.png\" style=\"%2LEFT: %3px; POSITION: absolute; TOP: %4px\">"_s.arg(name, more)
            .arg(left)
            .arg(top);
    }

    QRect box() {
        const Selection selection = editor_.selection();
        return selection.element ? selection.element->box : QRect();
    }

    QString level(const QString& name) {
        editor_.select_element(name);
        return editor_.selection().element->z_index;
    }
};

TEST_F(Moving, AClickSelectsAndDescribesTheElement) {
    load_elements(u"<p>text</p><a href=\"x.htm\">"_s + picture(u"logo"_s, 100, 100) + u"</a>"_s);
    EXPECT_EQ(editor_.selection().type, SelectionType::kNone);
    EXPECT_EQ(editor_.status(EditCommand::kHyperlink), CommandStatus::kDisabled);
    click(kInside);
    const Selection selection = editor_.selection();
    ASSERT_EQ(selection.type, SelectionType::kControl);
    EXPECT_EQ(selection.element->name, u"logo"_s);
    EXPECT_EQ(selection.element->box, QRect(100, 100, 60, 40));
    EXPECT_EQ(selection.element->z_index, u"5"_s);
    EXPECT_EQ(selection.element->parent_tag, u"A"_s);
    EXPECT_EQ(selection.element->parent_outer_html, u"<A href=\"x.htm\">"_s + picture(u"logo"_s, 100, 100) + u"</A>"_s);
    EXPECT_EQ(editor_.status(EditCommand::kHyperlink), CommandStatus::kEnabled);
    EXPECT_FALSE(editor_.modified());
    key(Qt::Key_Escape);
    EXPECT_EQ(editor_.selection().type, SelectionType::kNone);
}

TEST_F(Moving, DraggingMovesByWhatTheMouseMoved) {
    load_elements(picture(u"a"_s, 100, 100));
    const QString before = editor_.text();
    drag(kInside, kInside + QPoint(57, 213), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(157, 313));
    EXPECT_TRUE(body().contains(u"style=\"Z-INDEX: 5; LEFT: 157px; POSITION: absolute; TOP: 313px\""_s))
        << qPrintable(body());
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(editor_.text(), before);
    drag(kInside, QPoint(-200, -200), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(0, 0));
}

TEST_F(Moving, UnitlessPlacesAndForeignPropertiesAreKept) {
    load_elements(
        u"<img src=a.png style=\"position: absolute; left: 100; top: 100; filter: blendTrans(duration=3); z-index: 1010\">"_s);
    drag(kInside, kInside + QPoint(10, 0), Qt::AltModifier);
    EXPECT_TRUE(body().contains(
        u"Z-INDEX: 1010; POSITION: absolute; LEFT: 110px; TOP: 100px; FILTER: blendTrans(duration=3)"_s))
        << qPrintable(body());
}

TEST_F(Moving, SnapsToOthersUnlessAltIsHeld) {
    load_elements(picture(u"a"_s, 100, 100) + picture(u"b"_s, 300, 300));
    drag(kInside, kInside + QPoint(0, 196));
    EXPECT_EQ(box().topLeft(), QPoint(100, 300));
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    drag(kInside, kInside + QPoint(0, 196), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), QPoint(100, 296));
}

TEST_F(Moving, EscapeDuringADragPutsItBack) {
    load_elements(picture(u"a"_s, 100, 100));
    const QString before = editor_.text();
    QWidget* view = editor_.view()->focusProxy();
    QTest::mousePress(view, Qt::LeftButton, {}, kInside);
    QMouseEvent move(QEvent::MouseMove, QPoint(200, 200), view->mapToGlobal(QPoint(200, 200)), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &move);
    settle();
    EXPECT_NE(editor_.text(), before);
    key(Qt::Key_Escape);
    QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(200, 200));
    settle();
    EXPECT_EQ(editor_.text(), before);
    EXPECT_EQ(editor_.status(EditCommand::kUndo), CommandStatus::kDisabled);
}

TEST_F(Moving, HandlesSizeCornersInProportion) {
    load_elements(picture(u"a"_s, 100, 100));
    click(kInside);
    drag({160, 120}, {190, 120}, Qt::AltModifier);
    EXPECT_EQ(box(), QRect(100, 100, 90, 40));
    drag({190, 140}, {280, 140}, Qt::AltModifier);
    EXPECT_EQ(box(), QRect(100, 100, 180, 80));
    drag({100, 100}, {110, 120}, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(box(), QRect(110, 120, 170, 60));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(body(), picture(u"a"_s, 100, 100));
}

TEST_F(Moving, ArrowKeysNudgeAndAreOneStep) {
    load_elements(picture(u"a"_s, 100, 100));
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
    load_elements(picture(u"a"_s, 100, 100));
    click(kInside);
    EXPECT_EQ(editor_.status(EditCommand::kLockElement), CommandStatus::kEnabled);
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
    load_elements(u"<p><img src=a.png name=flow> text</p>"_s);
    const QPoint from(20, 30);
    click(from);
    ASSERT_EQ(editor_.selection().type, SelectionType::kControl);
    EXPECT_EQ(editor_.status(EditCommand::kMakeAbsolute), CommandStatus::kEnabled);
    const QPoint before = box().topLeft();
    drag(from, from + QPoint(100, 100), Qt::AltModifier);
    EXPECT_EQ(box().topLeft(), before + QPoint(100, 100));
    EXPECT_EQ(editor_.status(EditCommand::kMakeAbsolute), CommandStatus::kLatched);
}

TEST_F(Moving, LevelsAreRaisedAndLoweredPastOneNeighbour) {
    load_elements(picture(u"a"_s, 10, 10, u"Z-INDEX: 5; "_s) + picture(u"b"_s, 100, 10, u"Z-INDEX: 7; "_s) +
                  picture(u"c"_s, 200, 10, u"Z-INDEX: 9; "_s));
    editor_.select_element(u"a"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kBringForward));
    EXPECT_EQ((QStringList{level(u"a"_s), level(u"b"_s), level(u"c"_s)}), (QStringList{u"7"_s, u"5"_s, u"9"_s}));
    editor_.select_element(u"b"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kBringToFront));
    EXPECT_EQ(level(u"b"_s), u"10"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kSendToBack));
    EXPECT_EQ(level(u"b"_s), u"6"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kSendBelowText));
    EXPECT_EQ(level(u"b"_s), u"-6"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kBringAboveText));
    EXPECT_EQ(level(u"b"_s), u"6"_s);
}

TEST_F(Moving, PastedAtEndIsSelectedAndReplacedInPlace) {
    load_elements(u"<p>text</p>"_s);
    editor_.paste_at_end(picture(u"new"_s, 10, 10));
    EXPECT_EQ(editor_.selection().element->name, u"new"_s);
    EXPECT_TRUE(body().endsWith(picture(u"new"_s, 10, 10)));
    EXPECT_TRUE(editor_.replace_selected_element(u"<A href=\"x.htm\">"_s + picture(u"new"_s, 30, 30) + u"</A>"_s));
    EXPECT_EQ(editor_.selection().element->parent_tag, u"A"_s);
    key(Qt::Key_Delete);
    EXPECT_EQ(body(), u"\n<P>text</P>"_s);
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_EQ(editor_.selection().element->box.topLeft(), QPoint(30, 30));
}

TEST_F(Moving, TextInAPositionedBoxIsEnteredByADoubleClick) {
    load_elements(u"<div style=\"position:absolute; left:100; top:100; width:200; height:80\">words</div>"_s);
    click(kInside);
    EXPECT_EQ(editor_.selection().type, SelectionType::kControl);
    type(u"x"_s);
    EXPECT_FALSE(editor_.modified());
    double_click({110, 110});
    type(u"x"_s);
    EXPECT_TRUE(editor_.modified());
    EXPECT_EQ(editor_.selection().type, SelectionType::kNone);
}

}  // namespace

}  // namespace pondera
