#include <QAction>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/frm_splash.h"
#include "shell/frm_wizard.h"
#include "shell/look.h"
#include "shell/main_form.h"
#include "site/first_start.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

/// Goes through the program as a new user does and leaves a numbered picture of each step in the folder that the
/// environment variable PONDERA_PICTURES names.
class Tour : public testing::Test {
  protected:
    Tour() : settings_(u"Pondera"_s, u"Pondera"_s), roots_(Roots::of_user()) { settings_.beginGroup("Parametri"_L1); }

    static bool wait_until(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 20000); }

    void photograph(QWidget& window, const QString& name) {
        const QString folder = qEnvironmentVariable("PONDERA_PICTURES");
        QTest::qWait(300);
        if (folder.isEmpty()) return;
        QDir().mkpath(folder);
        ASSERT_TRUE(window.grab().save(u"%1/%2-%3.png"_s.arg(folder).arg(++pictures_, 2, 10, QChar(u'0')).arg(name)));
    }

    /// Copies the finished Website beside the pictures.
    static void keep_website(const QString& folder) {
        const QString pictures = qEnvironmentVariable("PONDERA_PICTURES");
        if (pictures.isEmpty()) return;
        const QDir to(pictures + u'/' + QFileInfo(folder).fileName());
        QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = to.filePath(QDir(folder).relativeFilePath(files.next()));
            ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()) && QFile::copy(files.filePath(), path));
        }
    }

    QWidget& page() { return *editor_->view()->focusProxy(); }

    QVariant in_page(const QString& expression) {
        std::optional<QVariant> result;
        editor_->view()->page()->runJavaScript(expression, QWebEngineScript::ApplicationWorld,
                                               [&result](const QVariant& value) { result = value; });
        EXPECT_TRUE(wait_until([&result] { return result.has_value(); }));
        return result.value_or(QVariant());
    }

    /// An element's box in the page's window; the element is brought into view first.
    QRect box_of(const QString& selector) {
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

    void type(const QString& text) {
        for (const QChar letter : text) QTest::keyClick(&page(), letter.toLatin1());
        QTest::qWait(50);
    }

    /// Selects a paragraph or heading by three clicks, as quick as a person's (QTest spaces its clicks).
    void select_paragraph(const QString& selector) {
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

    void move_mouse(const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, page().mapToGlobal(place), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&page(), &move);
        QTest::qWait(60);
    }

    void trigger(const QString& name) {
        auto* action = window_->findChild<QAction*>(name);
        ASSERT_NE(action, nullptr) << qPrintable(name);
        ASSERT_TRUE(wait_until([action] { return action->isEnabled(); })) << qPrintable(name) << " is disabled";
        action->trigger();
    }

    QSettings settings_;
    Roots roots_;
    ScriptedPrompts prompts_;
    std::unique_ptr<MainForm> window_;
    DHTMLEdit* editor_ = nullptr;
    int pictures_ = 0;
    quint64 clicks_ = 1'000'000;  ///< the mouse's time, in milliseconds
};

TEST_F(Tour, FromTheFirstStartToAPageInTheBrowser) {
    const auto installed = install_shipped_files(QStringLiteral(PONDERA_SOURCE_DIR) + u"/system"_s, roots_);
    ASSERT_TRUE(installed);

    int starts = 0;
    {
        frmSplash splash([&starts] { ++starts; });
        splash.show();
        ASSERT_TRUE(wait_until([&splash] { return !splash.isVisible(); }));
        EXPECT_EQ(splash.windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor"_s);
        QTest::qWait(1000);
        EXPECT_EQ(starts, 1) << "its timer goes off once";
        photograph(splash, u"splash"_s);
    }

    window_ = std::make_unique<MainForm>(roots_, prompts_, settings_);
    window_->resize(1180, 780);
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    editor_ = window_->findChild<DHTMLEdit*>(u"DHTMLEdit1"_s);
    ASSERT_NE(editor_, nullptr);
    photograph(*window_, u"start"_s);

    show_wizard(window_->workbench());
    auto* wizard = window_->findChild<frmWizard*>();
    ASSERT_NE(wizard, nullptr);
    photograph(*wizard, u"wizard"_s);

    prompts_
        .expect_form(u"Frm_Nuovo"_s,
                     [this](const FormHand& form) {
                         form.type(u"txtName"_s, u"Lighthouse"_s);
                         photograph(form.form(), u"new-website-name"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_form(u"Frm_Selezione_Iniziale"_s,
                     [this](const FormHand& form) {
                         form.choose(u"list"_s, u"Interfaccia Standard_Interface"_s);
                         photograph(form.form(), u"new-website-model"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_form(u"Frm_Selezione_Iniziale1"_s, [this](const FormHand& form) {
            form.choose(u"list"_s, form.entries(u"list"_s).constFirst());
            photograph(form.form(), u"new-website-first-page"_s);
            form.click(u"OKButton"_s);
        });
    QTest::mouseClick(wizard->findChild<QPushButton*>(u"cmd_create"_s), Qt::LeftButton);
    wizard->close();
    ASSERT_EQ(window_->workbench().website(), u"Lighthouse"_s);
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO - Lighthouse"_s);
    photograph(*window_, u"home-page"_s);

    editor_->view()->setFocus();
    select_paragraph(u"h1"_s);
    type(u"The lighthouse is open"_s);
    select_paragraph(u"h1 + p"_s);
    type(u"Come up on Sundays, the view is free."_s);
    QTest::keyClick(&page(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&page(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::qWait(100);
    trigger(u"Bold"_s);
    const QString body = editor_->text().section(u"<BODY"_s, 1);
    EXPECT_TRUE(body.contains(
        u"<H1>The lighthouse is open</H1>\n<P class=lead>Come up on Sundays, the view is <B>free.</B></P>"_s))
        << qPrintable(body.left(2000));
    photograph(*window_, u"typed-and-formatted"_s);

    prompts_.expect_form(u"Frm_Inserisci_Imm"_s, [this](const FormHand& form) {
        form.type(u"picture_path"_s, QDir(roots_.graphics_library()).filePath(u"Sea.jpg"_s));
        photograph(form.form(), u"insert-image"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"immagine"_s);
    const Selection inserted = editor_->selection();
    ASSERT_TRUE(inserted.element);
    EXPECT_EQ(inserted.element->box.topLeft(), QPoint(10, 10));
    const QString picture = u"img[name='%1']"_s.arg(inserted.element->name);
    photograph(*window_, u"image-inserted"_s);

    prompts_.expect_form(u"Frm_Ridim_Imm"_s, [this](const FormHand& form) {
        form.type(u"txtLarghezza"_s, u"320"_s);
        form.type(u"txtAltezza"_s, u"200"_s);
        photograph(form.form(), u"image-size"_s);
        form.click(u"OKButton"_s);
    });
    trigger(u"mnu_dim_imm"_s);
    ASSERT_EQ(editor_->selection().element->box.size(), QSize(320, 200));

    // To a place where it snaps: the right edge and the top of the large picture of the page.
    const QRect large = box_of(u"img.wide"_s), small = box_of(picture);
    const QPoint from = small.center();
    const QPoint to = from + QPoint(large.right() - small.right() + 3, large.top() - small.top() + 4);
    QTest::mousePress(&page(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 5; ++step) move_mouse(from + (to - from) * step / 5);
    photograph(*window_, u"image-dragged-with-guides"_s);
    QTest::mouseRelease(&page(), Qt::LeftButton, {}, to);
    QTest::qWait(100);
    EXPECT_EQ(box_of(picture).topRight(), large.topRight());
    const QRect placed = editor_->selection().element->box;

    EXPECT_TRUE(editor_->modified());
    trigger(u"salva"_s);
    EXPECT_FALSE(editor_->modified());
    photograph(*window_, u"saved"_s);

    const QString folder = roots_.website(u"Lighthouse"_s);
    const auto published = read_text_file(folder + u"/index.htm"_s);
    ASSERT_TRUE(published);
    EXPECT_FALSE(published->text.contains(QRegularExpression(u"[§ç]|file:"_s)));
    EXPECT_THAT(published->text.toStdString(), HasSubstr("<TITLE>Lighthouse - Home Page</TITLE>"));
    EXPECT_THAT(
        published->text.toStdString(),
        HasSubstr(u"LEFT: %1px; POSITION: absolute; TOP: %2px"_s.arg(placed.left()).arg(placed.top()).toStdString()));
    EXPECT_TRUE(QFile::exists(folder + u"/media/img/Sea.jpg"_s));

    trigger(u"Modo_Browse"_s);
    ASSERT_TRUE(wait_until([this] { return window_->workbench().browsing(); }));
    QTest::qWait(700);
    photograph(*window_, u"browse-mode"_s);
    trigger(u"Modo_edit"_s);
    ASSERT_TRUE(wait_until([this] { return !window_->workbench().browsing(); }));
    EXPECT_EQ(window_->workbench().page(), u"index.htm"_s);
    EXPECT_FALSE(editor_->modified());
    keep_website(folder);
}

}  // namespace

}  // namespace pondera
