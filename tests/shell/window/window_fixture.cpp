#include "tests/shell/window/window_fixture.h"

#include <QDir>
#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTreeWidgetItemIterator>
#include <QWebEnginePage>

#include <optional>

#include "base/text_file.h"
#include "shell/look.h"
#include "shell/site_tree.h"

namespace pondera {

using namespace Qt::StringLiterals;

void WindowFixture::SetUp() {
    for (const QString& website : {u"Shop"_s, u"Empty"_s}) {
        QDir().mkpath(roots_.website(website) + u"/media/img"_s);
        write(website, u"çindex.htm"_s, u"<P>Home of %1</P>"_s.arg(website));
        write(website, u"index.htm"_s, u"<P>Home of %1</P>"_s.arg(website));
    }
    write(u"Shop"_s, u"§_4_Trips.htm"_s, u"<P>Trips to the sea</P>"_s);
    write(u"Shop"_s, u"_4_Trips.htm"_s, u"<P>Trips to the sea</P>"_s);
    write(u"Shop"_s, u"§_x_Map.htm"_s, u"<P>A map</P>"_s);
    write(u"Shop"_s, u"_x_Map.htm"_s, u"<P>A map</P>"_s);
    settings_ = std::make_unique<QSettings>(home_.filePath(u"settings.ini"_s), QSettings::IniFormat);
    settings_->beginGroup("Parametri"_L1);
    set_look(*qApp);
    start();
}

void WindowFixture::TearDown() {
    window_.reset();
}

void WindowFixture::start() {
    window_ = std::make_unique<MainForm>(roots_, prompts_, *settings_);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
}

void WindowFixture::write(const QString& website, const QString& file, const QString& body) {
    const QString text =
        u"<HTML><HEAD><META charset=utf-8><TITLE>x</TITLE></HEAD>\r\n<BODY>%1</BODY></HTML>\r\n"_s.arg(body);
    ASSERT_TRUE(write_text_file(QDir(roots_.website(website)).filePath(file), text, TextEncoding::kUtf8));
}

QString WindowFixture::read(const QString& website, const QString& file) const {
    const auto text = read_text_file(QDir(roots_.website(website)).filePath(file));
    return text ? text->text : QString();
}

bool WindowFixture::choose(const QString& action) {
    auto& found = find<QAction>(action);
    const bool enabled = found.isEnabled();
    found.trigger();
    return enabled;
}

void WindowFixture::click_in_tree(const QString& page) {
    auto& tree = find<SiteTree>(u"TreeView1"_s);
    for (QTreeWidgetItemIterator item(&tree); *item != nullptr; ++item) {
        if (SiteTree::page_of(**item) != page) continue;
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(*item).center());
        return;
    }
    FAIL() << "the tree shows no " << page.toStdString();
}

void WindowFixture::change_page(const QString& text) {
    window_->workbench().editor().paste_at_end(u"<P>%1</P>"_s.arg(text));
}

QVariant WindowFixture::evaluate(QWebEnginePage& page, const QString& script) {
    QEventLoop loop;
    // The engine may answer after the wait was given up.
    const QPointer<QEventLoop> waiting(&loop);
    const auto answer = std::make_shared<std::optional<QVariant>>();
    page.runJavaScript(script, [answer, waiting](const QVariant& value) {
        *answer = value;
        if (waiting) waiting->quit();
    });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    if (!*answer) loop.exec();
    EXPECT_TRUE(answer->has_value()) << script.toStdString();
    return answer->value_or(QVariant());
}

void WindowFixture::photograph(const QString& name) {
    const QString folder = qEnvironmentVariable("PONDERA_PICTURES");
    if (folder.isEmpty()) return;
    QTest::qWait(1200);
    window_->screen()->grabWindow().save(QDir(folder).filePath(name + u".png"_s));
}

}  // namespace pondera
