#include "tests/shell/window/window_fixture.h"

#include <QDir>
#include <QTest>
#include <QTestEventLoop>
#include <QTreeWidgetItemIterator>
#include <QWebEnginePage>

#include <optional>

#include "base/text_file.h"
#include "shell/site_tree.h"

namespace pondera {

void WindowFixture::SetUp() {
    have_website(u"Shop"_s);
    have_website(u"Empty"_s);
    for (const QString& file : {u"§_4_Trips.htm"_s, u"_4_Trips.htm"_s})
        write(u"Shop"_s, file, u"<P>Trips to the sea</P>"_s);
    for (const QString& file : {u"§_x_Map.htm"_s, u"_x_Map.htm"_s}) write(u"Shop"_s, file, u"<P>A map</P>"_s);
    start();
}

void WindowFixture::have_website(const QString& website) {
    QDir().mkpath(roots_.website(website) + u"/media/img"_s);
    for (const QString& file : {u"çindex.htm"_s, u"index.htm"_s})
        write(website, file, u"<P>Home of %1</P>"_s.arg(website));
}

void WindowFixture::start() {
    window_ = std::make_unique<MainForm>(roots_, prompts_, settings_);
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
    workbench().editor().paste_at_end(u"<P>%1</P>"_s.arg(text));
}

QVariant WindowFixture::evaluate(QWebEnginePage& page, const QString& script) {
    // The engine may answer after the wait was given up.
    const auto loop = std::make_shared<QTestEventLoop>();
    const auto answer = std::make_shared<std::optional<QVariant>>();
    page.runJavaScript(script, [answer, loop](const QVariant& value) {
        *answer = value;
        loop->exitLoop();
    });
    if (!*answer) loop->enterLoopMSecs(5000);
    EXPECT_TRUE(answer->has_value()) << script.toStdString();
    return answer->value_or(QVariant());
}

}  // namespace pondera
