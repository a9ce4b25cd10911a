#include "tests/tour/tour_fixture.h"

#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <QtWidgets>

#include "shell/editing/dhtml_edit.h"

namespace pondera {

Tour::Tour() : settings_(u"Pondera"_s, u"Pondera"_s), roots_(Roots::of_user()) {
    settings_.beginGroup("Parametri"_L1);
}

void Tour::open_window() {
    window_ = std::make_unique<MainForm>(roots_, prompts_, settings_);
    window_->resize(1180, 780);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    editor_ = window_->findChild<DHTMLEdit*>(u"DHTMLEdit1"_s);
    ASSERT_NE(editor_, nullptr);
}

bool Tour::wait_until(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 20000);
}

void Tour::photograph(QWidget& window, const QString& name) {
    const QString folder = qEnvironmentVariable("PONDERA_PICTURES");
    QTest::qWait(300);
    if (folder.isEmpty()) return;
    QDir().mkpath(folder);
    ASSERT_TRUE(window.grab().save(u"%1/%2-%3.png"_s.arg(folder).arg(++pictures_, 2, 10, QChar(u'0')).arg(name)));
}

void Tour::keep_website(const QString& folder) {
    const QString pictures = qEnvironmentVariable("PONDERA_PICTURES");
    if (pictures.isEmpty()) return;
    const QDir to(pictures + u'/' + QFileInfo(folder).fileName());
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = to.filePath(QDir(folder).relativeFilePath(files.next()));
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()) && QFile::copy(files.filePath(), path));
    }
}

QWidget& Tour::page() {
    return *editor_->view()->focusProxy();
}

QVariant Tour::in_page(const QString& expression) {
    std::optional<QVariant> result;
    editor_->view()->page()->runJavaScript(expression, QWebEngineScript::ApplicationWorld,
                                           [&result](const QVariant& value) { result = value; });
    EXPECT_TRUE(wait_until([&result] { return result.has_value(); }));
    return result.value_or(QVariant());
}

QRect Tour::box_of(const QString& selector) {
    const QVariantList box = in_page(
                                 uR"((() => {
        const e = document.querySelector("%1");
        e.scrollIntoView({ block: "nearest", inline: "nearest" });
        const r = e.getBoundingClientRect();
        return [r.left, r.top, r.width, r.height]; })())"_s.arg(selector))
                                 .toList();
    if (box.size() != 4) {
        ADD_FAILURE() << "not on the page: " << qPrintable(selector);
        return {};
    }
    return QRectF(box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble()).toRect();
}

void Tour::type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(&page(), letter.toLatin1());
    QTest::qWait(50);
}

void Tour::select_paragraph(const QString& selector) {
    const QPoint place = box_of(selector).center();
    for (int click = 0; click < 3; ++click) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
            QMouseEvent event(type, place, page().mapToGlobal(place), Qt::LeftButton, held, {});
            event.setTimestamp(clicks_ += 40);
            QCoreApplication::sendEvent(&page(), &event);
        }
    }
    clicks_ += 5000;
    QTest::qWait(100);
}

void Tour::move_mouse(const QPoint& place) {
    QMouseEvent move(QEvent::MouseMove, place, page().mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&page(), &move);
    QTest::qWait(60);
}

void Tour::trigger(const QString& name) {
    auto* action = window_->findChild<QAction*>(name);
    ASSERT_NE(action, nullptr) << qPrintable(name);
    ASSERT_TRUE(wait_until([action] { return action->isEnabled(); })) << qPrintable(name) << " is disabled";
    action->trigger();
}

}  // namespace pondera
