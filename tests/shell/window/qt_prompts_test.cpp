#include "shell/qt_prompts.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "tests/support/qt_text.h"

namespace pondera {

using A = Answer;

/// The answer of a message box in which `key` is pressed.
static Answer answer_to(const QList<Answer>& answers, Qt::Key key) {
    QtPrompts prompts;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), u"Pondera"_s);
        EXPECT_EQ(box->textFormat(), Qt::PlainText) << "names of pages are shown as they are, never as markup";
        QTest::keyClick(box, key);
    });
    return prompts.message({u"Save <b>this</b>?"_s, MessageIcon::kQuestion, answers, {}});
}

TEST(QtPromptsTest, ReturnGivesTheFirstAnswerAndEscTheHarmlessOne) {
    const QList<std::pair<QList<Answer>, Answer>> escapes{
        {{A::kOk}, A::kOk},
        {{A::kYes, A::kNo}, A::kNo},
        {{A::kYes, A::kNo, A::kCancel}, A::kCancel},
        {{A::kCancel, A::kReload}, A::kCancel},
    };
    for (const auto& [answers, on_escape] : escapes) {
        EXPECT_EQ(answer_to(answers, Qt::Key_Return), answers.first());
        EXPECT_EQ(answer_to(answers, Qt::Key_Escape), on_escape);
    }
}

TEST(QtPromptsTest, AFormIsNoLargerThanTheScreen) {
    QtPrompts prompts;
    QDialog form;
    form.resize(4000, 3000);
    QTimer::singleShot(0, &form, &QDialog::accept);
    EXPECT_TRUE(prompts.run(form));
    EXPECT_EQ(form.size().boundedTo(form.screen()->availableSize()), form.size());
    EXPECT_EQ(form.width(), form.screen()->availableSize().width());
}

}  // namespace pondera
