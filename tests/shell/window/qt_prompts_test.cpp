#include "shell/qt_prompts.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The answer of a message box in which `key` is pressed, and what the box shows.
Answer answer_to(const QList<Answer>& answers, Qt::Key key, QString* text = nullptr) {
    QtPrompts prompts;
    QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), u"Pondera"_s);
        if (text != nullptr) *text = box->text();
        QTest::keyClick(box, key);
    });
    return prompts.message({u"Save <b>this</b>?"_s, MessageIcon::kQuestion, answers, {}});
}

TEST(QtPromptsTest, ReturnGivesTheFirstAnswerAndEscTheHarmlessOne) {
    struct Case {
        QList<Answer> answers;
        Answer on_return;
        Answer on_escape;
    };
    const QList<Case> cases{
        {{Answer::kOk}, Answer::kOk, Answer::kOk},
        {{Answer::kYes, Answer::kNo}, Answer::kYes, Answer::kNo},
        {{Answer::kYes, Answer::kNo, Answer::kCancel}, Answer::kYes, Answer::kCancel},
        {{Answer::kSave, Answer::kDiscard, Answer::kCancel}, Answer::kSave, Answer::kCancel},
        {{Answer::kOverwrite, Answer::kReload, Answer::kCancel}, Answer::kOverwrite, Answer::kCancel},
        {{Answer::kCancel, Answer::kReload}, Answer::kCancel, Answer::kCancel},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(answer_to(each.answers, Qt::Key_Return), each.on_return);
        EXPECT_EQ(answer_to(each.answers, Qt::Key_Escape), each.on_escape);
    }
    QString text;
    answer_to({Answer::kOk}, Qt::Key_Return, &text);
    EXPECT_EQ(text, u"Save <b>this</b>?") << "names of pages are shown as they are, never as markup";
}

}  // namespace
}  // namespace pondera
