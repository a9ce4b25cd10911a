#pragma once

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "shell/editing/dhtml_edit.h"

namespace pondera {

/// A shown editing control on a real folder, worked with mouse and keys as a person does.
class EditingFixture : public testing::Test {
  protected:
    void SetUp() override;

    /// Writes `page` to a file of the folder and loads it.
    void load(const QString& page, const QString& name = QStringLiteral("page.htm"));

    /// Writes a plain coloured PNG of that size into the folder.
    void make_picture(const QString& name, QSize size);

    void click(QPoint place, Qt::KeyboardModifiers modifiers = {});
    void double_click(QPoint place);
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {});
    void type(const QString& text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    /// Lets the engine handle the events that were sent.
    void settle();

    /// Evaluates a script expression in the editing script's world.
    QVariant evaluate(const QString& expression);

    /// Selects the letters of the first text node that holds `text`, as a drag over them does.
    void select_text(const QString& text);

    /// The markup inside BODY.
    QString body();

    QString path(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    DHTMLEdit editor_;
};

}  // namespace pondera
