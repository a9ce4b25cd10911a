#pragma once

#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// Goes through the program as a new user does and leaves a numbered picture of each step in the folder that the
/// environment variable PONDERA_PICTURES names. The tests follow one another with the same Website.
class Tour : public WindowFixture {
  protected:
    Tour() { roots_ = Roots::of_user(); }

    /// Opens the main window as a start of the program does.
    void SetUp() override;

    static bool wait_until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 20'000); }

    /// A picture of the main window, once the page has been drawn.
    void photograph(const QString& name);

    /// Waits for the answer of a question about the page under edit.
    QVariant in_page(const QString& expression) {
        return evaluate(web_page(), expression, QWebEngineScript::ApplicationWorld);
    }

    /// An element's box in the page's window; the element is brought into view first.
    QRect box_of(const QString& selector);

    void select_paragraph(const QString& selector);  ///< or a heading, by three clicks
    void type_over(const QString& selector, const QString& text);
};

}  // namespace pondera
