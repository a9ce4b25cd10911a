#include "player/window/player_window.h"

#include <QTest>
#include <QWebEngineView>
#include <QtWidgets>

#include "tests/player/package_fixture.h"
#include "tests/support/opened_addresses.h"
#include "tests/support/page_hand.h"

namespace pondera {

class PlayerWindows : public PackageFixture {
  protected:
    void show(const QString& home_page) {
        window_ = std::make_unique<PlayerWindow>(home_page);
        bool shown = false;
        QObject::connect(window_.get(), &PlayerWindow::Shown, window_.get(), [&] { shown = true; });
        window_->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return shown; }, 30'000));
    }

    [[nodiscard]] static QWebEngineView& view_of(const QWidget& window) {
        return *window.findChild<QWebEngineView*>(u"player_view"_s, Qt::FindDirectChildrenOnly);
    }
    QVariant value(const QString& script) const { return evaluate(*view_of(*window_).page(), script); }
    [[nodiscard]] QString text(const QString& script) const { return value(script).toString(); }
    [[nodiscard]] bool titled(const QString& title) const {
        return QTest::qWaitFor([&] { return window_->windowTitle() == title; });
    }
    [[nodiscard]] QList<PlayerWindow*> popups() const { return window_->findChildren<PlayerWindow*>(); }
    void click(const QString& link) const {
        const QString box = u"document.getElementById('%1').getBoundingClientRect()"_s.arg(link);
        const QPoint place(value(box + u".x"_s).toInt() + 3, value(box + u".y"_s).toInt() + 3);
        QTest::mouseClick(view_of(*window_).focusProxy(), Qt::LeftButton, {}, place);
    }

    std::unique_ptr<PlayerWindow> window_;
};

TEST_F(PlayerWindows, LeafsThroughThePackageAndNothingElse) {
    have(u"index.htm"_s,
         "<TITLE>The Shop</TITLE><A id=trip href=\"_4_Trips.htm\">Trips</A>"
         "<A id=web href=\"https://pondera.example/\">Web</A>"
         "<A id=new target=_blank href=\"https://pondera.example/new\">Web</A>");
    have(u"_4_Trips.htm"_s, "<TITLE>Trips</TITLE>Trips");
    have(u"_x_Map.htm"_s, "<TITLE>Map</TITLE>Map");
    make_package();
    show(package(u"Shop/index.htm"_s));
    ASSERT_TRUE(titled(u"The Shop"_s));
    for (const QString& action : {u"back"_s, u"home"_s}) {
        click(u"trip"_s);
        ASSERT_TRUE(titled(u"Trips"_s)) << action.toStdString();
        ASSERT_TRUE(QTest::qWaitFor([&] { return window_->findChild<QAction*>(action)->isEnabled(); }));
        window_->findChild<QAction*>(action)->trigger();
        ASSERT_TRUE(titled(u"The Shop"_s)) << action.toStdString();
    }

    OpenedAddresses opened;
    for (const QString& link : {u"web"_s, u"new"_s}) click(link);
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened.addresses.size() == 2; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return popups().isEmpty(); }));
    EXPECT_EQ(opened.addresses,
              QList<QUrl>({QUrl(u"https://pondera.example/"_s), QUrl(u"https://pondera.example/new"_s)}));
    EXPECT_EQ(window_->windowTitle(), u"The Shop");

    value(u"window.open('_x_Map.htm', 'map', 'width=300,height=200'); 1"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return popups().size() == 1 && popups().first()->isVisible(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return popups().first()->windowTitle() == u"Map"; }));
    QTest::keyClick(popups().first(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return popups().isEmpty(); }));
}

TEST_F(PlayerWindows, PagesReadNoFilesOfTheMachine) {
    const QString secret = QUrl::fromLocalFile(machine_.put(u"secret.txt"_s, "secret")).toString();
    have(u"media/img/own.txt"_s, "own");
    make_package();
    show(package(u"Shop/index.htm"_s));
    const QString ask =
        u"window.answers = {}; ['%1', 'media/img/own.txt'].forEach((address, i) => {"
        "const r = new XMLHttpRequest(); r.onload = () => answers[i] = r.responseText;"
        "r.onerror = () => answers[i] = 'refused'; r.open('GET', address); r.send(); }); 1"_s;
    value(ask.arg(secret));
    EXPECT_TRUE(QTest::qWaitFor([&] { return text(u"answers[0] + ' ' + answers[1]"_s) == u"refused own"; }));
    value(u"location.href = '%1'; 1"_s.arg(secret));
    EXPECT_EQ(text(u"document.body.innerText"_s), u"Home");
}

TEST_F(PlayerWindows, FullScreenHasNoToolbarAndIsLeftByTheSameKey) {
    make_package();
    show(package(u"Shop/index.htm"_s));
    const auto& bar = *window_->findChild<QToolBar*>(u"player_toolbar"_s);
    for (const auto& [key, full] : {std::pair(Qt::Key_F11, true), std::pair(Qt::Key_F11, false),
                                    std::pair(Qt::Key_F11, true), std::pair(Qt::Key_Escape, false)}) {
        QTest::keyClick(window_.get(), key);
        EXPECT_EQ(window_->isFullScreen(), full);
        EXPECT_EQ(bar.isVisible(), !full);
    }
}

}  // namespace pondera
