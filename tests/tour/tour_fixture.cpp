#include "tests/tour/tour_fixture.h"

namespace pondera {

void Tour::SetUp() {
    ASSERT_NO_FATAL_FAILURE(have_shipped_files());
    ASSERT_NO_FATAL_FAILURE(start());
    window_->resize(1180, 780);
}

void Tour::photograph(const QString& name) {
    QTest::qWait(300);
    pondera::photograph(*window_, name);
}

QRect Tour::box_of(const QString& selector) {
    const QString script =
        uR"((() => {
        const e = document.querySelector("%1");
        e.scrollIntoView({ block: "nearest", inline: "nearest" });
        const r = e.getBoundingClientRect();
        return [r.left, r.top, r.width, r.height]; })())"_s;
    const QVariantList box = in_page(script.arg(selector)).toList();
    if (box.size() != 4) throw std::runtime_error("not on the page: " + selector.toStdString());
    return QRectF(box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble()).toRect();
}

void Tour::select_paragraph(const QString& selector) {
    click_quickly(page_view(), box_of(selector).center(), 3);
    QTest::qWait(100);
}

void Tour::type_over(const QString& selector, const QString& text) {
    select_paragraph(selector);
    type_text(page_view(), text);
    QTest::qWait(50);
}

}  // namespace pondera
