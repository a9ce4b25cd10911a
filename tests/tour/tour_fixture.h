#pragma once

#include <QSettings>
#include <QVariant>

#include <gtest/gtest.h>
#include <memory>

#include "base/roots.h"
#include "shell/main_form.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

class DHTMLEdit;

/// Goes through the program as a new user does and leaves a numbered picture of each step in the folder that the
/// environment variable PONDERA_PICTURES names. The tests follow one another with the same Website.
class Tour : public testing::Test {
  protected:
    Tour();

    /// Opens the main window as a start of the program does.
    void open_window();

    static bool wait_until(const std::function<bool()>& condition);
    void photograph(QWidget& window, const QString& name);

    /// Copies the finished Website beside the pictures.
    static void keep_website(const QString& folder);

    QWidget& page();
    QVariant in_page(const QString& expression);

    /// An element's box in the page's window; the element is brought into view first.
    QRect box_of(const QString& selector);

    void type(const QString& text);

    /// Selects a paragraph or heading by three clicks, as quick as a person's (QTest spaces its clicks).
    void select_paragraph(const QString& selector);

    void move_mouse(const QPoint& place);
    void trigger(const QString& name);

    QSettings settings_;
    Roots roots_;
    ScriptedPrompts prompts_;
    std::unique_ptr<MainForm> window_;
    DHTMLEdit* editor_ = nullptr;
    static inline int pictures_ = 0;
    quint64 clicks_ = 1'000'000;  ///< the mouse's time, in milliseconds
};

}  // namespace pondera
