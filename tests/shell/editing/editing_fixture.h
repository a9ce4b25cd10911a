#pragma once

#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include "shell/editing/dhtml_edit.h"
#include "tests/support/page_hand.h"
#include "tests/support/tables.h"

namespace pondera {

/// A shown editing control on a real folder, worked with mouse and keys as a person does.
class EditingFixture : public testing::Test {
  protected:
    void SetUp() override;

    /// Writes `page` to a file of the folder and loads it.
    void load(const QString& page, const QString& name = QStringLiteral("page.htm"));

    /// Loads a page with that body.
    void load_body(const QString& markup) { load(u"<html><head></head><body>"_s + markup + u"</body></html>"_s); }

    /// Loads a body in which "[" and "]" stand at the ends of the selection ("|": the caret), and selects that.
    void load_selected(const QString& markup);

    /// Writes a picture of that size into the folder.
    void make_picture(const QString& name, QSize size) { ASSERT_TRUE(QPixmap(size).save(path(name))); }

    /// What was done was one step, and the text before it comes back.
    void undo_to(const QString& before) {
        EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
        EXPECT_EQ(editor_.text(), before);
    }

    void click(QPoint place, int times = 1);
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {});
    void move_mouse(QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {});
    void type(const QString& text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    /// Lets the engine handle the events that were sent.
    void settle();

    /// Evaluates a script expression in the editing script's world.
    QVariant evaluate(const QString& expression) {
        return pondera::evaluate(*editor_.view()->page(), expression, QWebEngineScript::ApplicationWorld);
    }

    static void put_on_clipboard(const QString& html, const QString& text);

    /// The markup inside BODY.
    QString body() { return body_of(editor_.text()); }

    /// The body without the line breaks that its spelling puts before blocks.
    QString text() { return body().remove(u'\n'); }

    /// What receives the page's mouse and keys.
    QWidget& view() { return *editor_.view()->focusProxy(); }

    QString path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    DHTMLEdit editor_;
};

}  // namespace pondera
