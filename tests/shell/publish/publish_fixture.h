#pragma once

#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// A dialog that publishes the Website "Shop", and a person who works it.
class PublishFixture : public WindowFixture {
  protected:
    PublishFixture(QString command, QString dialog) : command_(std::move(command)), dialog_(std::move(dialog)) {}

    /// Opens the dialog, works it and closes it.
    void in_dialog(const ScriptedPrompts::Filler& work) {
        run_form(command_, dialog_, [&](const FormHand& form) {
            work(form);
            form.click(QStringLiteral("OKButton"));
        });
    }

    static QString text(const FormHand& form, const QString& label) { return form.widget<QLabel>(label).text(); }
    static QString info(const FormHand& form) {
        return form.widget<QPlainTextEdit>(QStringLiteral("Info")).toPlainText();
    }

    static bool connected(const FormHand& form) { return info(form).startsWith(QStringLiteral("Connected.")); }

    /// Presses a button and waits until the work that it began has ended.
    static void do_and_wait(const FormHand& form, const QString& button) {
        form.click(button);
        wait(form);
    }
    static void wait(const FormHand& form) {
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return form.widget<QAbstractButton>(QStringLiteral("Collegati")).isEnabled(); }, 30'000));
    }

  private:
    QString command_;
    QString dialog_;
};

}  // namespace pondera
