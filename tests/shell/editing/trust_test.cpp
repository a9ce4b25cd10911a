#include <QtWidgets>

#include <csignal>

#include "base/roots.h"
#include "elements/published_page.h"
#include "tests/shell/editing/editing_fixture.h"

namespace pondera {

class Trust : public EditingFixture {
  protected:
    /// What a page file holds when Debian's Chromium has shown it in a window as wide as the control.
    QString shown_by_chromium(const QString& file) {
        QProcess chromium;
        chromium.start(u"chromium"_s, {u"--headless"_s, u"--no-sandbox"_s, u"--disable-gpu"_s, u"--hide-scrollbars"_s,
                                       u"--disable-background-networking"_s, u"--no-first-run"_s,
                                       u"--user-data-dir="_s + path(u"profile"_s), u"--window-size=900,700"_s,
                                       u"--dump-dom"_s, QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)});
        EXPECT_TRUE(chromium.waitForFinished(60000)) << qPrintable(chromium.errorString());
        return QString::fromUtf8(chromium.readAllStandardOutput());
    }
};

/// The places of all named pictures of a page, as JSON.
const QString kPlaces =
    uR"(JSON.stringify(Object.fromEntries([...document.querySelectorAll("img[name]")].map(i => {
    const r = i.getBoundingClientRect();
    return [i.getAttribute("name"), [r.left + scrollX, r.top + scrollY, r.width, r.height]]; }))))"_s;

static QJsonObject places(const QString& json) {
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

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
    evaluate(u"scrollTo(0, 0)"_s);
    const QJsonArray first = places(evaluate(kPlaces).toString())[u"p0"_s].toArray();
    const QPoint inside(first[0].toInt() + 20, first[1].toInt() + 20);
    drag(inside, inside + QPoint(33, 71), Qt::AltModifier);
    const QJsonObject edited = places(evaluate(kPlaces).toString());
    ASSERT_EQ(edited[u"p0"_s][0].toInt(), first[0].toInt() + 33);

    QString published = convert_page(editor_.text(), {Roots(folder_.path()), u"Site"_s, {}, {}}).text;
    const QString tell =
        u"<script>onload = () => { document.title = '(' + "_s + kPlaces + u" + ')'; };</script></BODY>"_s;
    published.replace(u"</BODY>"_s, tell);
    ASSERT_TRUE(write_text_file(path(u"published.htm"_s), published, TextEncoding::kUtf8));
    const QString dom = shown_by_chromium(path(u"published.htm"_s));
    const QJsonObject shown = places(dom.section(u"<title>("_s, 1).section(u")</title>"_s, 0, 0));
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
    time.start();
    QObject::connect(&editor_, &DHTMLEdit::contextMenuRequested, &editor_,
                     [&] { selected = editor_.selection().element->name; });
    QTest::mouseClick(editor_.view()->focusProxy(), Qt::RightButton, {}, {120, 120});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !selected.isEmpty(); }, 70000));
    EXPECT_EQ(selected, u"a"_s);
    EXPECT_LT(time.elapsed(), 20000) << "the question waited for an answer that never came";
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
