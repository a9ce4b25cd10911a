#include "tests/support/page_hand.h"

#include <QTest>
#include <QTestEventLoop>
#include <QWebEnginePage>
#include <QtWidgets>

#include <memory>
#include <optional>

namespace pondera {

QVariant evaluate(QWebEnginePage& page, const QString& script, quint32 world) {
    // The engine may answer after the wait was given up.
    const auto loop = std::make_shared<QTestEventLoop>();
    const auto answer = std::make_shared<std::optional<QVariant>>();
    page.runJavaScript(script, world, [answer, loop](const QVariant& value) {
        *answer = value;
        loop->exitLoop();
    });
    if (!*answer) loop->enterLoopMSecs(20'000);
    EXPECT_TRUE(answer->has_value()) << script.toStdString();
    return answer->value_or(QVariant());
}

void click_quickly(QWidget& view, QPoint place, int times) {
    static quint64 time = 1'000'000;
    time += 5000;
    for (int click = 0; click < times; ++click) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, place, view.mapToGlobal(place), Qt::LeftButton, held, {});
            event.setTimestamp(time += 40);
            QCoreApplication::sendEvent(&view, &event);
        }
    }
}

void move_mouse(QWidget& view, QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    QMouseEvent move(QEvent::MouseMove, place, view.mapToGlobal(place), Qt::NoButton, held, modifiers);
    QCoreApplication::sendEvent(&view, &move);
}

void type_text(QWidget& view, const QString& text) {
    for (const QChar letter : text) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, letter.toUpper().unicode(), {}, letter);
            QCoreApplication::sendEvent(&view, &event);
        }
    }
}

QString body_of(const QString& page) {
    const qsizetype from = page.indexOf(u'>', page.indexOf(u"<BODY"_s)) + 1;
    return page.sliced(from, page.indexOf(u"</BODY>"_s) - from);
}

}  // namespace pondera
