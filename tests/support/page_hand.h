#pragma once

#include <QPoint>
#include <QVariant>

class QWebEnginePage;
class QWidget;

namespace pondera {

/// The value of a script expression in a page that is shown, in the page's own world (0) or another.
QVariant evaluate(QWebEnginePage& page, const QString& script, quint32 world = 0);

/// Clicks several times as quickly as a person: QTest spaces its clicks so that they never count as one.
void click_quickly(QWidget& view, QPoint place, int times);

/// Moves the mouse with buttons held.
void move_mouse(QWidget& view, QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {});

/// Types letters into what has the focus there.
void type_text(QWidget& view, const QString& text);

/// The markup inside BODY.
[[nodiscard]] QString body_of(const QString& page);

}  // namespace pondera
