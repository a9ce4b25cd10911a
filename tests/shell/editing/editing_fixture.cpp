#include "tests/shell/editing/editing_fixture.h"

#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <QtWidgets>

#include <optional>

namespace pondera {

void EditingFixture::SetUp() {
    editor_.resize(900, 700);
    editor_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&editor_));
}

void EditingFixture::load(const QString& page, const QString& name) {
    ASSERT_TRUE(write_text_file(path(name), page, TextEncoding::kUtf8));
    ASSERT_TRUE(editor_.load_document(path(name)));
    editor_.view()->setFocus();
    settle();
}

void EditingFixture::load_body(const QString& markup) {
    load(u"<html><head></head><body>"_s + markup + u"</body></html>"_s);
}

void EditingFixture::load_selected(const QString& markup) {
    load_body(markup);
    evaluate(
        uR"((() => {
        const place = mark => {
            const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
            for (let n = walker.nextNode(); n; n = walker.nextNode()) {
                const at = n.data.indexOf(mark);
                if (at < 0) continue;
                n.deleteData(at, 1);
                if (n.data) return [n, at];
                const own = [n.parentNode, [...n.parentNode.childNodes].indexOf(n)];
                n.remove();
                return own;
            }
        };
        const from = place("|") || place("["), to = place("]") || from;
        getSelection().setBaseAndExtent(...from, ...to);
        pondera.history.reset();
    })())"_s);
    settle();
}

void EditingFixture::make_picture(const QString& name, QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    ASSERT_TRUE(picture.save(path(name)));
}

void EditingFixture::click(QPoint place, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(editor_.view()->focusProxy(), Qt::LeftButton, modifiers, place);
    settle();
}

void EditingFixture::double_click(QPoint place) {
    // QTest spaces its clicks so that they never count as one; these come as a person's do.
    QWidget* view = editor_.view()->focusProxy();
    quint64 time = 1'000'000;
    for (const QEvent::Type type :
         {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, place, view->mapToGlobal(place), Qt::LeftButton, held, {});
        event.setTimestamp(time += 50);
        QCoreApplication::sendEvent(view, &event);
    }
    settle();
}

void EditingFixture::drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers) {
    QWidget* view = editor_.view()->focusProxy();
    QTest::mousePress(view, Qt::LeftButton, modifiers, from);
    for (int step = 1; step <= 4; ++step) move_mouse(from + (to - from) * step / 4, Qt::LeftButton, modifiers);
    QTest::mouseRelease(view, Qt::LeftButton, modifiers, to);
    settle();
}

void EditingFixture::move_mouse(QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    QWidget* view = editor_.view()->focusProxy();
    QMouseEvent move(QEvent::MouseMove, place, view->mapToGlobal(place), Qt::NoButton, held, modifiers);
    QCoreApplication::sendEvent(view, &move);
    settle();
}

void EditingFixture::type(const QString& text) {
    for (const QChar letter : text) {
        QKeyEvent press(QEvent::KeyPress, 0, {}, QString(letter)), release(QEvent::KeyRelease, 0, {}, QString(letter));
        if (letter.unicode() < 128) {
            QTest::keyClick(editor_.view()->focusProxy(), letter.toLatin1());
        } else {
            QCoreApplication::sendEvent(editor_.view()->focusProxy(), &press);
            QCoreApplication::sendEvent(editor_.view()->focusProxy(), &release);
        }
    }
    settle();
}

void EditingFixture::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(editor_.view()->focusProxy(), key, modifiers);
    settle();
}

void EditingFixture::settle() {
    // Input goes to the engine's process and is handled in order before the question that follows it.
    QTest::qWait(30);
    evaluate(u"1"_s);
}

QVariant EditingFixture::evaluate(const QString& expression) {
    std::optional<QVariant> result;
    editor_.view()->page()->runJavaScript(expression, QWebEngineScript::ApplicationWorld,
                                          [&result](const QVariant& value) { result = value; });
    if (!QTest::qWaitFor([&result] { return result.has_value(); }, 20000))
        ADD_FAILURE() << "no answer to " << qPrintable(expression);
    return result.value_or(QVariant());
}

void EditingFixture::select_text(const QString& text) {
    const QString script =
        uR"((() => {
        const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
        for (let n = walker.nextNode(); n; n = walker.nextNode()) {
            const at = n.data.indexOf(%1);
            if (at < 0) continue;
            getSelection().setBaseAndExtent(n, at, n, at + %2);
            return true;
        }
        return false;
    })())"_s;
    const QString quoted = u"\""_s + QString(text).replace(u"\""_s, u"\\\""_s) + u"\""_s;
    ASSERT_TRUE(evaluate(script.arg(quoted).arg(text.size())).toBool()) << qPrintable(text);
    settle();
}

void EditingFixture::put_on_clipboard(const QString& html, const QString& text) {
    auto* data = new QMimeData;
    if (!html.isEmpty()) data->setHtml(html);
    data->setText(text);
    QApplication::clipboard()->setMimeData(data);
}

QString EditingFixture::body() {
    const QString text = editor_.text();
    const qsizetype open = text.indexOf(u"<BODY"_s), from = text.indexOf(u'>', open) + 1;
    return text.mid(from, text.indexOf(u"</BODY>"_s) - from);
}

}  // namespace pondera
