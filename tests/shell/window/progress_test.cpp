#include "workbench/progress.h"

#include "tests/shell/window/window_fixture.h"

namespace pondera {

class LongWork : public WindowFixture {
  protected:
    /// How many of 80 steps of five milliseconds were done, while `person` acts at the machine after the first ones.
    int steps_done(Cancelling cancelling, const std::function<void()>& person) {
        ProgressRun run(workbench().progress(), u"Import"_s, u"in progress..."_s, 0, cancelling);
        const Steps steps = run.steps();
        QTimer::singleShot(10, window_.get(), person);
        for (int done = 1; done <= 80; ++done) {
            QTest::qSleep(5);
            if (!steps(done, 80)) return done;
        }
        return 80;
    }

    /// Both put events into the queue, as the system does.
    static void press(QWidget& to, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QCoreApplication::postEvent(&to, new QKeyEvent(QEvent::KeyPress, key, modifiers));
    }

    static void click(QWidget& widget) {
        const QPointF place = widget.rect().center();
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(&widget, new QMouseEvent(type, place, widget.mapToGlobal(place), Qt::LeftButton,
                                                                 Qt::LeftButton, Qt::NoModifier));
    }
};

TEST_F(LongWork, IsCancelledByEscOrTheButtonAndByNothingElse) {
    open(u"Shop"_s);
    auto& cancel = find<QToolButton>(u"cmd_cancel"_s);
    const auto escape = [this] { press(*window_, Qt::Key_Escape); };
    const auto button = [&] { click(cancel); };
    EXPECT_LT(steps_done(Cancelling::kYes, escape), 80);
    EXPECT_LT(steps_done(Cancelling::kYes, button), 80);
    EXPECT_EQ(steps_done(Cancelling::kNo, button), 80);
    EXPECT_FALSE(cancel.isVisible());

    const auto panels = [this] {
        return find<QLabel>(u"panel_what"_s).text() + u'|' + find<QLabel>(u"panel_state"_s).text();
    };
    const auto close_it = [&] {
        EXPECT_TRUE(panels() == u"Import|in progress..." && find<QProgressBar>(u"ProgressBar1"_s).value() > 0);
        click(*find<QTreeWidget>(u"TreeView1"_s).viewport());
        press(*window_, Qt::Key_Q, Qt::ControlModifier);
        window_->close();
    };
    EXPECT_EQ(steps_done(Cancelling::kYes, close_it), 80);
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(page(), u"index.htm");
    EXPECT_EQ(panels(), u"|");
}

}  // namespace pondera
