#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>

#include "shell/browser_version.h"
#include "shell/frm_settings.h"
#include "shell/frm_splash.h"
#include "shell/frm_wizard.h"
#include "shell/help/help_arguments.h"
#include "shell/help/help_window.h"
#include "shell/help_launcher.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(Start, TheSplashWindowStartsTheProgramOnce) {
    int starts = 0;
    frmSplash splash([&] { ++starts; });
    splash.show();
    auto* timer = splash.findChild<QTimer*>(u"TimerStart"_s);
    ASSERT_NE(timer, nullptr);
    timer->setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return starts > 0; }));
    QTest::qWait(20);
    EXPECT_EQ(starts, 1);
    EXPECT_FALSE(timer->isActive());
    EXPECT_EQ(splash.windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor");
    EXPECT_FALSE(splash.isVisible());
}

TEST(Start, BrowserVersions) {
    const QList<std::pair<QString, VersionVerdict>> cases{
        {u"5.5"_s, VersionVerdict::kSupported},        {u"6.0.2900.5512"_s, VersionVerdict::kSupported},
        {u"7.0"_s, VersionVerdict::kSupported},        {u"8.0"_s, VersionVerdict::kTooNew},
        {u"7.1"_s, VersionVerdict::kTooNew},           {u"11.0.9600"_s, VersionVerdict::kTooNew},
        {u"5.0"_s, VersionVerdict::kOutOfDate},        {u"6.1"_s, VersionVerdict::kOutOfDate},
        {u"unreadable"_s, VersionVerdict::kOutOfDate}, {{}, VersionVerdict::kOutOfDate},
    };
    for (const auto& [version, verdict] : cases)
        EXPECT_EQ(test_browser_version(version), verdict) << version.toStdString();
}

class StartTest : public WindowFixture {};

TEST_F(StartTest, AnUnsupportedVersionSavesTheEditingCopyButConvertsNothing) {
    struct Case {
        QString version;
        std::function<void()> expect;
    };
    const QList<Case> cases{
        {u"5.0"_s, [&] { prompts_.expect_message(u"The Internet Explorer version installed is out of date."_s); }},
        {u"8.0"_s, [&] {
             prompts_.expect_form(u"frmUpdate"_s, [&](const FormHand& form) {
                 EXPECT_EQ(form.widget<QLabel>(u"lblMessage"_s).text(),
                           u"  Connect to site:\nThe Pondera vesion needs to be updated.");
                 EXPECT_TRUE(
                     form.widget<QLabel>(u"lblLink"_s).text().startsWith(u"Click here to go to the Website: "_s));
                 photograph(u"update"_s);
                 form.click(u"OKButton"_s);
             });
         }}};
    for (const Case& each : cases) {
        settings_->setValue("Version"_L1, each.version);
        start();
        ASSERT_TRUE(window_->workbench().open_website(u"Shop"_s));
        change_page(u"version "_s + each.version);
        each.expect();
        window_->workbench().save();
        EXPECT_FALSE(read(u"Shop"_s, u"index.htm"_s).contains(each.version));
        EXPECT_TRUE(read(u"Shop"_s, u"çindex.htm"_s).contains(each.version));
    }
    EXPECT_EQ(prompts_.messages().first().title, u"Attention!");
    EXPECT_EQ(prompts_.messages().first().icon, MessageIcon::kCritical);
}

TEST_F(StartTest, TheWizardSettingIsOffOnlyAtZero) {
    for (const auto& [value, shown] : {std::pair{u"0"_s, false}, {u"1"_s, true}, {u""_s, true}, {u"yes"_s, true}}) {
        settings_->setValue("Wizard"_L1, value);
        EXPECT_EQ(wizard_at_start(*settings_), shown) << value.toStdString();
    }
    settings_->remove("Wizard"_L1);
    EXPECT_TRUE(wizard_at_start(*settings_));
}

TEST_F(StartTest, TheWizardRunsTheCommandsThatThereAreAndKeepsItsSetting) {
    EXPECT_TRUE(choose(u"mnu_wizard"_s));
    auto& wizard = find<frmWizard>(u"frmWizard"_s);
    EXPECT_EQ(wizard.windowTitle(), u"Wizard - 3 Steps for Pondera");
    EXPECT_TRUE(choose(u"mnu_wizard"_s));
    EXPECT_EQ(window_->findChildren<frmWizard*>().size(), 1);
    photograph(u"wizard"_s);
    for (const auto& [button, command] : {std::pair{u"cmd_create"_s, u"Crea_Website"_s},
                                          {u"cmd_fill"_s, u"mnu_ins_marchio"_s},
                                          {u"cmd_publish"_s, u"mnu_pubblica"_s}}) {
        const auto* action = window_->findChild<QAction*>(command);
        const bool enabled = find<QPushButton>(button).isEnabled();
        EXPECT_EQ(enabled, action != nullptr && action->isEnabled()) << button.toStdString();
    }
    EXPECT_FALSE(find<QLabel>(u"note_publish"_s).text().isEmpty());
    QTest::mouseClick(&find<QCheckBox>(u"chkWizard"_s), Qt::LeftButton);
    EXPECT_FALSE(wizard_at_start(*settings_));
}

TEST_F(StartTest, SettingsAreWrittenOnOkOnly) {
    const auto change = [](const QString& button) {
        return [button](const FormHand& form) {
            form.click(u"chkWizard"_s);
            form.click(u"chkAutomaticHelp"_s);
            form.photograph(u"settings"_s);
            form.click(button);
        };
    };
    prompts_.expect_form(u"frmSettings"_s, change(u"CancelButton"_s));
    choose(u"mnu_settings"_s);
    EXPECT_TRUE(wizard_at_start(*settings_));
    EXPECT_FALSE(automatic_help(*settings_));
    prompts_.expect_form(u"frmSettings"_s, change(u"OKButton"_s));
    choose(u"mnu_settings"_s);
    EXPECT_FALSE(wizard_at_start(*settings_));
    EXPECT_TRUE(automatic_help(*settings_));
}

TEST(HelpViewer, ReadsItsCommandLineWholeTornOrJoined) {
    const QString joined = u"/PERCORSO:/_HELP/_6_Ins Image.htm+/CAPTION:Help - Select Image+/LEFT:10+/TOP:20"_s;
    const QList<QStringList> lines{
        {joined},
        joined.split(u' '),
        {u"/PERCORSO:/_HELP/_6_Ins Image.htm"_s, u"+/CAPTION:Help - Select Image"_s, u"+/LEFT:10"_s, u"+/TOP:20"_s},
        help_arguments({u"/_HELP/_6_Ins Image.htm"_s, u"Help - Select Image"_s, QPoint(10, 20)}),
    };
    for (const QStringList& line : lines) {
        const HelpArguments read = parse_help_arguments(line);
        EXPECT_EQ(read.page, u"/_HELP/_6_Ins Image.htm") << line.join(u'|').toStdString();
        EXPECT_EQ(read.caption, u"Help - Select Image");
        EXPECT_EQ(read.position, QPoint(10, 20));
    }
    EXPECT_EQ(parse_help_arguments({}).page, u"");
    EXPECT_FALSE(parse_help_arguments({u"/PERCORSO:/_HELP/x.htm"_s}).position);
}

TEST_F(StartTest, TheHelpViewerShowsPagesOfTheHelpFolderOnly) {
    QDir().mkpath(roots_.websites() + u"/_HELP"_s);
    write(u"_HELP"_s, u"_6_Ins Image.htm"_s, u"image help"_s);
    write(u"_HELP"_s, u"çindex.htm"_s, u"all help pages"_s);
    const QString root = roots_.websites();
    EXPECT_FALSE(help_file(root, u"\\_HELP\\_6_Ins Image.htm"_s).isEmpty());
    EXPECT_TRUE(help_file(root, u"/Shop/index.htm"_s).isEmpty());
    EXPECT_TRUE(help_file(root, u"/_HELP/../Shop/index.htm"_s).isEmpty());

    HelpWindow help(roots_);
    help.show();
    auto* view = help.findChild<QWebEngineView*>(u"help_view"_s);
    const auto shows = [&](const QString& text) {
        return QTest::qWaitFor(
            [&] { return evaluate(*view->page(), u"document.body?.innerText"_s).toString().contains(text); });
    };
    help.open({u"/_HELP/_6_Ins Image.htm"_s, u"Help - Select Image"_s, {}});
    EXPECT_EQ(help.windowTitle(), u"Help - Select Image");
    EXPECT_TRUE(shows(u"image help"_s));
    help.open({u"/_HELP/_6_Gone.htm"_s, {}, {}});
    EXPECT_TRUE(shows(u"There is no such help page"_s));
    view->page()->runJavaScript(u"document.querySelector('a').click()"_s);
    EXPECT_TRUE(shows(u"all help pages"_s));
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST_F(StartTest, HelpOpensThePageOfTheLastCommandInTheViewer) {
    const QString viewer = home_.filePath(u"viewer"_s);
    QFile script(viewer);
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.arguments\"\n");
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    ASSERT_TRUE(place_help_viewer(viewer, roots_));
    const QString written = QDir(roots_.tools_folder()).filePath(u"Help.exe.arguments"_s);
    const auto opened = [&](const QString& page) {
        return QTest::qWaitFor([&] {
            QFile file(written);
            return file.open(QIODevice::ReadOnly) && QString::fromUtf8(file.readAll()).startsWith(page);
        });
    };
    choose(u"mnu_help"_s);
    EXPECT_TRUE(opened(u"/PERCORSO:/_HELP/_6_Window.htm|+/CAPTION:Help - Window|"_s));
    ASSERT_TRUE(window_->workbench().open_website(u"Shop"_s));
    choose(u"mnu_salva"_s);
    choose(u"mnu_help"_s);
    EXPECT_TRUE(opened(u"/PERCORSO:/_HELP/_6_Save.htm|"_s));

    settings_->setValue("Automatic Help"_L1, u"1"_s);
    choose(u"mnu_select_all"_s);
    EXPECT_TRUE(opened(u"/PERCORSO:/_HELP/_6_Edit.htm|"_s));
    QFile::remove(QDir(roots_.tools_folder()).filePath(u"Help.exe"_s));
    prompts_.expect_message(u"The help viewer cannot be started"_s);
    choose(u"mnu_help"_s);
}

TEST_F(StartTest, TheHelpViewerIsPlacedInTheToolsFolderAndReplacesAnOldOne) {
    const auto program = [&](const QString& name) {
        QFile file(home_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(name.toUtf8());
        return file.fileName();
    };
    const QString placed = QDir(roots_.tools_folder()).filePath(u"Help.exe"_s);
    for (const QString& version : {u"first"_s, u"second"_s, u"second"_s}) {
        EXPECT_TRUE(place_help_viewer(program(version), roots_));
        QFile file(placed);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), version.toUtf8());
    }
}

}  // namespace
}  // namespace pondera
