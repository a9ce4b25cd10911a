#include "shell/browser_version.h"
#include "shell/frm_settings.h"
#include "shell/frm_wizard.h"
#include "shell/help/help_arguments.h"
#include "shell/help/help_window.h"
#include "shell/help_launcher.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

TEST(Start, BrowserVersions) {
    for (const auto& [verdict, versions] : {std::pair{VersionVerdict::kSupported, u"5.5 6.0.2900.5512 7.0"_s},
                                            {VersionVerdict::kTooNew, u"7.1 8.0 11.0.9600"_s},
                                            {VersionVerdict::kOutOfDate, u"5.0 6.1 unreadable "_s}})
        for (const QString& version : versions.split(u' '))
            EXPECT_EQ(test_browser_version(version), verdict) << version.toStdString();
}

class StartTest : public WindowFixture {};

TEST_F(StartTest, AnUnsupportedVersionShowsAMessageInsteadOfThePage) {
    prompts_.expect_message(u"The Internet Explorer version installed is out of date."_s)
        .expect_form(u"frmUpdate"_s, [](const FormHand& form) { form.photograph(u"update"_s).click(u"OKButton"_s); });
    for (const QString& version : {u"5.0"_s, u"8.0"_s}) {
        settings_.setValue("Version"_L1, version);
        start();
        EXPECT_FALSE(workbench().open_website(u"Shop"_s));
        EXPECT_EQ(page(), QString());
    }
}

TEST_F(StartTest, TheWizardOpensOnceAndKeepsItsSetting) {
    for (int twice = 0; twice < 2; ++twice) EXPECT_TRUE(choose(u"mnu_wizard"_s));
    EXPECT_EQ(window_->findChildren<frmWizard*>().size(), 1);
    EXPECT_FALSE(find<QPushButton>(u"cmd_fill"_s).isEnabled()) << "no Website is open";
    open(u"Shop"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return find<QPushButton>(u"cmd_fill"_s).isEnabled(); }));
    QTest::mouseClick(&find<QCheckBox>(u"chkWizard"_s), Qt::LeftButton);
    EXPECT_FALSE(wizard_at_start(settings_));
}

TEST_F(StartTest, SettingsAreWrittenOnOkOnly) {
    for (const auto& [button, written] : {std::pair{u"CancelButton"_s, false}, {u"OKButton"_s, true}}) {
        run_form(u"mnu_settings"_s, u"frmSettings"_s, [&](const FormHand& form) {
            form.click(u"chkWizard"_s).click(u"chkAutomaticHelp"_s).photograph(u"settings"_s).click(button);
        });
        EXPECT_EQ(wizard_at_start(settings_), !written);
        EXPECT_EQ(automatic_help(settings_), written);
    }
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
        const auto [page, caption, position] = parse_help_arguments(line);
        EXPECT_EQ(page + u'|' + caption, u"/_HELP/_6_Ins Image.htm|Help - Select Image")
            << line.join(u'|').toStdString();
        EXPECT_EQ(position, QPoint(10, 20));
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
    evaluate(*view->page(), u"document.querySelector('a').click()"_s);
    EXPECT_TRUE(shows(u"all help pages"_s));
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST_F(StartTest, HelpOpensThePageOfTheLastCommandInTheViewerThatWasPlaced) {
    const auto program = [&](const QString& name, const QByteArray& text) {
        EXPECT_TRUE(write_file(home_.filePath(name), text));
        QFile::setPermissions(home_.filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        EXPECT_TRUE(place_help_viewer(home_.filePath(name), roots_));
    };
    program(u"old"_s, "#!/bin/false\n");
    for (int start = 0; start < 2; ++start) program(u"viewer"_s, "#!/bin/sh\nprintf '%s|' \"$@\" > \"$0.arguments\"\n");
    const QString placed = QDir(roots_.tools_folder()).filePath(u"Help.exe"_s);
    const auto opened = [&](const QByteArray& page) {
        return QTest::qWaitFor([&] { return read_file(placed + u".arguments"_s).value_or("").startsWith(page); });
    };
    choose(u"mnu_help"_s);
    EXPECT_TRUE(opened("/PERCORSO:/_HELP/_6_Window.htm|+/CAPTION:Help - Window|"));
    open(u"Shop"_s);
    choose(u"mnu_salva"_s);
    choose(u"mnu_help"_s);
    EXPECT_TRUE(opened("/PERCORSO:/_HELP/_6_Save.htm|"));

    settings_.setValue("Automatic Help"_L1, u"1"_s);
    choose(u"mnu_select_all"_s);
    EXPECT_TRUE(opened("/PERCORSO:/_HELP/_6_Edit.htm|"));
    QFile::remove(placed);
    run_told(u"mnu_help"_s, u"The help viewer cannot be started"_s);
}

}  // namespace pondera
