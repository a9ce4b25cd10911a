#include "tests/shell/window/window_fixture.h"

#include "site/first_start.h"
#include "site/page_name.h"

namespace pondera {

void WindowFixture::SetUp() {
    have_website(u"Shop"_s);
    have_website(u"Empty"_s);
    write_page(u"Shop"_s, u"_4_Trips.htm"_s, u"<P>Trips to the sea</P>"_s);
    write_page(u"Shop"_s, u"_x_Map.htm"_s, u"<P>A map</P>"_s);
    start();
}

void WindowFixture::have_website(const QString& website) {
    QDir().mkpath(roots_.website(website) + u"/media/img"_s);
    write_page(website, u"index.htm"_s, u"<P>Home of %1</P>"_s.arg(website));
}

void WindowFixture::start() {
    window_ = std::make_unique<MainForm>(roots_, prompts_, settings_);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
}

void WindowFixture::have_shipped_files() {
    for (const char* shipped : {PONDERA_SOURCE_DIR "/system", PONDERA_PLAYER_DIR})
        ASSERT_TRUE(install_shipped_files(QString::fromUtf8(shipped), roots_)) << shipped;
}

void WindowFixture::write(const QString& website, const QString& file, const QString& body) {
    const QString text =
        u"<HTML><HEAD><META charset=utf-8><TITLE>x</TITLE></HEAD>\r\n<BODY>%1</BODY></HTML>\r\n"_s.arg(body);
    ASSERT_TRUE(write_text_file(QDir(roots_.website(website)).filePath(file), text, TextEncoding::kUtf8));
}

void WindowFixture::write_page(const QString& website, const QString& page, const QString& body) {
    for (const QString& file : {page, editing_copy_name(page)}) write(website, file, body);
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

void WindowFixture::run(const QString& action) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return choose(action); })) << action.toStdString();
}

void WindowFixture::run_form(const QString& action, const QString& form, const ScriptedPrompts::Filler& fill,
                             const QStringList& told) {
    prompts_.expect_form(form, fill, told);
    run(action);
}

void WindowFixture::run_told(const QString& action, const QString& message, Answer answer) {
    prompts_.expect_message(message, answer);
    run(action);
}

QTreeWidgetItem& WindowFixture::in_tree(const QString& text) {
    const auto found = tree().findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.size() != 1) throw std::runtime_error("no item " + text.toStdString());
    return *found.first();
}

void WindowFixture::click_in_tree(const QString& page) {
    for (QTreeWidgetItemIterator item(&tree()); *item != nullptr; ++item) {
        if (SiteTree::page_of(**item) != page) continue;
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualItemRect(*item).center());
        return;
    }
    FAIL() << "the tree shows no " << page.toStdString();
}

void WindowFixture::change_page(const QString& text) {
    workbench().editor().paste_at_end(u"<P>%1</P>"_s.arg(text));
}

QString WindowFixture::make_picture(const QString& file, QSize size) const {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(0x2c, 0x6e, 0x63));
    const QString path = QDir(home_.path()).filePath(file);
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()) && picture.save(path, "PNG")) << path.toStdString();
    return path;
}

}  // namespace pondera
