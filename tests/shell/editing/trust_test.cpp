#include <QtWidgets>

#include <csignal>

#include "base/roots.h"
#include "elements/published_page.h"
#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

class Trust : public EditingFixture {
  protected:
    // The places of all named pictures in a page file, as Debian's Chromium shows it in a window as wide as the
    // control.
    QJsonObject places_in_chromium(const QString& file) {
        QProcess chromium;
        chromium.start(u"chromium"_s, {u"--headless"_s, u"--no-sandbox"_s, u"--disable-gpu"_s, u"--hide-scrollbars"_s,
                                       u"--disable-background-networking"_s, u"--no-first-run"_s,
                                       u"--user-data-dir="_s + path(u"profile"_s), u"--window-size=900,700"_s,
                                       u"--dump-dom"_s, QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)});
        EXPECT_TRUE(chromium.waitForFinished(60000)) << qPrintable(chromium.errorString());
        static const QRegularExpression result(u"<pre id=\"places\">(.*?)</pre>"_s);
        const QString dom = QString::fromUtf8(chromium.readAllStandardOutput());
        return QJsonDocument::fromJson(result.match(dom).captured(1).toUtf8()).object();
    }
};

const QString kPlaces =
    uR"(JSON.stringify(Object.fromEntries([...document.querySelectorAll("img[name]")].map(i => {
    const r = i.getBoundingClientRect();
    return [i.getAttribute("name"), [r.left + scrollX, r.top + scrollY, r.width, r.height]]; }))))"_s;

TEST_F(Trust, ThePublishedPageShowsElementsWhereTheControlDoes) {
    const QString system = QStringLiteral(PONDERA_SOURCE_DIR) + u"/system/Pondera/Pondera_System/"_s;
    ASSERT_TRUE(QFile::link(system + u"media"_s, path(u"media"_s)));
    const auto card = read_text_file(system + u"Standard_Interface_§_1_card.htm"_s);
    ASSERT_TRUE(card);
    load(card->text);
    const QString walk =
        u"<IMG name=p%1 src=\"media/img/standard-walk.jpg\" style=\"Z-INDEX: %1; LEFT: %2px; WIDTH: 120px; "
        "POSITION: absolute; TOP: %3px\">"_s;
    for (int i = 0; i < 5; ++i) editor_.paste_at_end(walk.arg(i).arg(40 + 130 * i).arg(50 + 170 * i));
    editor_.select_element(u"p0"_s);
    const QRect first = editor_.selection().element->box;
    evaluate(u"scrollTo(0, 0)"_s);
    const int left = evaluate(u"document.querySelector('[name=p0]').getBoundingClientRect().left"_s).toInt();
    const QPoint inside(left + 20, first.top() + 20);
    drag(inside, inside + QPoint(33, 71), Qt::AltModifier);
    const QJsonObject edited = QJsonDocument::fromJson(evaluate(kPlaces).toString().toUtf8()).object();
    ASSERT_EQ(editor_.selection().element->box.topLeft(), first.topLeft() + QPoint(33, 71));

    const Roots roots(folder_.path());
    QString published = convert_page(editor_.text(), {roots, u"Site"_s, {}, {}}).text;
    published.replace(u"</BODY>"_s,
                      u"<script>onload = () => { const places = "_s + kPlaces +
                          u"; const p = document.createElement('pre'); p.id = 'places'; p.textContent = places; "
                          "document.body.append(p); };</script></BODY>"_s);
    ASSERT_TRUE(write_text_file(path(u"published.htm"_s), published, TextEncoding::kUtf8));
    const QJsonObject shown = places_in_chromium(path(u"published.htm"_s));
    ASSERT_EQ(shown.keys(), edited.keys());
    ASSERT_GE(shown.size(), 5);
    for (const QString& name : shown.keys())
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(shown[name][i].toDouble(), edited[name][i].toDouble(), 1.0) << qPrintable(name) << ' ' << i;
}

TEST_F(Trust, TheRightClickSelectsAndMayAsk) {
    make_picture(u"a.png"_s, {60, 40});
    load(u"<body><img name=a src=a.png style=\"position:absolute; left:100; top:100\"></body>"_s);
    QString selected;
    QElapsedTimer time;
    QObject::connect(&editor_, &DHTMLEdit::contextMenuRequested, &editor_, [&] {
        time.start();
        selected = editor_.selection().element->name;
        EXPECT_LT(time.elapsed(), 20000) << "the question waited for an answer that never came";
    });
    QTest::mouseClick(editor_.view()->focusProxy(), Qt::RightButton, {}, {120, 120});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !selected.isEmpty(); }, 70000));
    EXPECT_EQ(selected, u"a"_s);
}

TEST_F(Trust, AnEngineThatDiesIsNotWaitedForAndLosesNothing) {
    load(u"<body>\r\n<p>text</p></body>"_s);
    evaluate(u"getSelection().selectAllChildren(document.querySelector('p'))"_s);
    type(u"more"_s);
    QTest::qWait(3500);
    QWebEnginePage* page = editor_.view()->page();
    const auto ask_while_dead = [this] {
        QElapsedTimer time;
        time.start();
        const QString text = editor_.text();
        EXPECT_TRUE(text.contains(u"more"_s) && !text.contains(u"\r\r"_s)) << qPrintable(text);
        EXPECT_LT(time.elapsed(), 20000) << "the question waited for an answer that never came";
    };
    bool restored = false;
    QObject::connect(page, &QWebEnginePage::renderProcessTerminated, &editor_, ask_while_dead, Qt::QueuedConnection);
    QObject::connect(&editor_, &DHTMLEdit::restoredAfterCrash, &editor_, [&restored] { restored = true; });
    ASSERT_EQ(kill(static_cast<pid_t>(page->renderProcessPid()), SIGKILL), 0);
    ASSERT_TRUE(QTest::qWaitFor([&restored] { return restored; }, 20000));
    EXPECT_THAT(text(), Holds(u"<P>more</P>"_s));
    EXPECT_TRUE(editor_.modified());
    EXPECT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_THAT(text(), Holds(u"<P>text</P>"_s));
}

}  // namespace pondera
