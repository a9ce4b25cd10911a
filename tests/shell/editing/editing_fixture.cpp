#include "tests/shell/editing/editing_fixture.h"

#include <QtWidgets>

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

void EditingFixture::click(QPoint place, int times) {
    click_quickly(view(), place, times);
    settle();
}

void EditingFixture::drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers) {
    QTest::mousePress(&view(), Qt::LeftButton, modifiers, from);
    for (int step = 1; step <= 4; ++step) move_mouse(from + (to - from) * step / 4, Qt::LeftButton, modifiers);
    QTest::mouseRelease(&view(), Qt::LeftButton, modifiers, to);
    settle();
}

void EditingFixture::move_mouse(QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers) {
    pondera::move_mouse(view(), place, held, modifiers);
    settle();
}

void EditingFixture::type(const QString& text) {
    type_text(view(), text);
    settle();
}

void EditingFixture::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&view(), key, modifiers);
    settle();
}

void EditingFixture::settle() {
    // Input goes to the engine's process and is handled in order before the question that follows it.
    QTest::qWait(30);
    evaluate(u"1"_s);
}

void EditingFixture::put_on_clipboard(const QString& html, const QString& text) {
    auto* data = new QMimeData;
    if (!html.isEmpty()) data->setHtml(html);
    data->setText(text);
    QApplication::clipboard()->setMimeData(data);
}

}  // namespace pondera
