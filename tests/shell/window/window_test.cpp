#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QToolBar>
#include <QWebEngineView>

#include "shell/editing/dhtml_edit.h"
#include "shell/site_tree.h"
#include "shell/toolbar.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QStringList entries(const QComboBox& box) {
    QStringList texts;
    for (int index = 0; index < box.count(); ++index) texts.append(box.itemText(index));
    return texts;
}

QStringList captions(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions) texts.append(action->text());
    return texts;
}

class MainFormTest : public WindowFixture {
  protected:
    void open(const QString& website) { ASSERT_TRUE(window_->workbench().open_website(website)); }
    QString page() { return window_->workbench().page(); }
    QString panel(const QString& name) { return find<QLabel>(name).text(); }
};

TEST_F(MainFormTest, HoldsItsFixedTextsAndLists) {
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor");
    EXPECT_EQ(entries(find<QComboBox>(u"font_list"_s)),
              QStringList({u"Times New Roman"_s, u"Arial"_s, u"Tahoma"_s, u"Courier"_s, u"Verdana"_s, u"Wingdings"_s}));
    EXPECT_EQ(entries(find<QComboBox>(u"size_list"_s)),
              QStringList({u"1 (8pt)"_s, u"2 (10pt)"_s, u"3 (12pt)"_s, u"4 (14pt)"_s, u"5 (18pt)"_s, u"6 (24pt)"_s,
                           u"7 (36pt)"_s}));
    photograph(u"start"_s);
    open(u"Shop"_s);
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO - Shop");
    EXPECT_EQ(panel(u"panel_page"_s), u"HOME PAGE"_s);
    window_->workbench().close_website();
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor");
    EXPECT_EQ(panel(u"panel_page"_s), u""_s);
}

TEST_F(MainFormTest, MenusStandInTheirOrderWithoutEmptyOnes) {
    const QStringList order{u"&File"_s,   u"&Edit"_s,   u"&View"_s, u"&Insert"_s,
                            u"F&ormat"_s, u"&Levels"_s, u"&Page"_s, u"&Help"_s};
    qsizetype last = -1;
    for (QAction* menu : window_->menuBar()->actions()) {
        EXPECT_GT(order.indexOf(menu->text()), last) << menu->text().toStdString();
        last = order.indexOf(menu->text());
        EXPECT_FALSE(menu->menu()->isEmpty());
    }
    EXPECT_EQ(last, order.size() - 1);
}

TEST_F(MainFormTest, NoTwoCommandsShareANameOrKeys) {
    QSet<QString> names;
    QHash<QKeySequence, QString> keys;
    for (const QAction* action : window_->findChildren<QAction*>()) {
        if (action->objectName().isEmpty() || action->parent() == nullptr) continue;
        const QString owner = action->parent()->objectName() + u'/' + action->objectName();
        EXPECT_FALSE(names.contains(owner)) << owner.toStdString();
        names.insert(owner);
        if (action->shortcut().isEmpty()) continue;
        EXPECT_FALSE(keys.contains(action->shortcut()))
            << owner.toStdString() << " and " << keys.value(action->shortcut()).toStdString();
        keys.insert(action->shortcut(), owner);
    }
}

TEST_F(MainFormTest, EveryToolbarKeyIsThereAndRunsItsCommandOrIsDisabled) {
    const QStringList keys{u"Bold"_s,         u"Italic"_s,   u"Underline"_s, u"Numbers"_s,     u"Bullets"_s,
                           u"Outdent"_s,      u"Indent"_s,   u"Center"_s,    u"LeftJustify"_s, u"Color"_s,
                           u"RightJustify"_s, u"salva"_s,    u"player"_s,    u"sopra"_s,       u"pubblica"_s,
                           u"sotto"_s,        u"rinomina"_s, u"aggiungi"_s,  u"immagine"_s,    u"slide"_s,
                           u"collegamento"_s, u"testo"_s,    u"email"_s,     u"motore"_s,      u"menu"_s};
    const auto& bar = find<QToolBar>(u"Toolbar1"_s);
    QHash<QString, QString> command_of;
    for (const ToolbarKey& key : toolbar_keys()) command_of.insert(key.key, key.command);
    const auto check = [&](const char* when) {
        for (const QString& key : keys) {
            const auto* action = bar.findChild<QAction*>(key);
            ASSERT_TRUE(action != nullptr && bar.actions().contains(action)) << key.toStdString();
            const auto* command = window_->findChild<QAction*>(command_of.value(key));
            EXPECT_EQ(action->isEnabled(), command != nullptr && command->isEnabled()) << key.toStdString() << when;
            EXPECT_FALSE(action->icon().isNull()) << key.toStdString();
        }
    };
    check(" without a Website");
    EXPECT_FALSE(bar.findChild<QAction*>(u"salva"_s)->isEnabled());
    open(u"Shop"_s);
    check(" while editing");
    EXPECT_TRUE(bar.findChild<QAction*>(u"salva"_s)->isEnabled());
    EXPECT_FALSE(bar.findChild<QAction*>(u"pubblica"_s)->isEnabled());
    EXPECT_EQ(bar.findChild<QAction*>(u"sopra"_s)->text(), u"&Bring Up");
    EXPECT_EQ(bar.findChild<QAction*>(u"sotto"_s)->text(), u"&Bring Down");
}

TEST_F(MainFormTest, TheMenuKeyOpensTheManagementOnlyWithBothGeneratedFiles) {
    const auto key = std::ranges::find(toolbar_keys(), u"menu"_s, &ToolbarKey::key);
    const QString folder = roots_.website(u"Shop"_s);
    EXPECT_EQ(command_of_key(*key, {}), u"mnu_crea_menu");
    write(u"Shop"_s, u"media/img/menu_items.js"_s, {});
    EXPECT_EQ(command_of_key(*key, folder), u"mnu_crea_menu");
    write(u"Shop"_s, u"media/img/pnd.css"_s, {});
    EXPECT_EQ(command_of_key(*key, folder), u"mnu_management_menu");
}

TEST_F(MainFormTest, KeysFormatTextAndShowItsFormat) {
    open(u"Shop"_s);
    EditingControl& editor = window_->workbench().editor();
    editor.execute(EditCommand::kSelectAll);
    find<QToolBar>(u"Toolbar1"_s).findChild<QAction*>(u"Bold"_s)->trigger();
    EXPECT_TRUE(editor.text().contains(u"<B>"_s)) << editor.text().toStdString();
    const auto* bold = find<QToolBar>(u"Toolbar1"_s).findChild<QAction*>(u"Bold"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bold->isChecked(); }));

    auto& sizes = find<QComboBox>(u"size_list"_s);
    emit sizes.textActivated(u"5 (18pt)"_s);
    EXPECT_TRUE(editor.text().contains(u"size=5"_s)) << editor.text().toStdString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return sizes.currentText() == u"5 (18pt)"; }));
    auto& fonts = find<QComboBox>(u"font_list"_s);
    EXPECT_EQ(fonts.currentText(), u"Times New Roman");
    editor.replace_text(u"<HTML><BODY style='font-family: -apple-system, Inter, Arial, sans-serif'>x</BODY></HTML>"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fonts.currentText() == u"Arial"; })) << fonts.currentText().toStdString();
    editor.execute(EditCommand::kSelectAll);

    prompts_.expect_colour(QColor(0x11, 0x22, 0x33));
    EXPECT_TRUE(choose(u"Col_For"_s));
    EXPECT_TRUE(editor.text().contains(u"#112233"_s)) << editor.text().toStdString();
    EXPECT_EQ(panel(u"panel_modified"_s), u"Unsaved changes"_s);
    EXPECT_TRUE(choose(u"salva"_s));
    EXPECT_EQ(panel(u"panel_modified"_s), u""_s);
    EXPECT_TRUE(read(u"Shop"_s, u"index.htm"_s).contains(u"#112233"_s));
}

TEST_F(MainFormTest, StandardKeysWorkWhileThePageHasTheFocus) {
    open(u"Shop"_s);
    auto& control = find<DHTMLEdit>(u"DHTMLEdit1"_s);
    QWidget& page_view = *control.view()->focusProxy();
    page_view.setFocus();
    const auto press = [&](Qt::Key key) { QTest::keyClick(&page_view, key, Qt::ControlModifier); };
    const auto holds = [&](const QString& markup) {
        return QTest::qWaitFor([&] { return control.text().contains(markup); });
    };
    press(Qt::Key_A);
    EXPECT_TRUE(QTest::qWaitFor([&] { return find<QAction>(u"mnu_cut"_s).isEnabled(); }));
    press(Qt::Key_B);
    press(Qt::Key_I);
    EXPECT_TRUE(holds(u"<I>"_s) && holds(u"<B>"_s)) << control.text().toStdString();
    press(Qt::Key_Z);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !control.text().contains(u"<I>"_s); }));
    EXPECT_TRUE(holds(u"<B>"_s)) << "one key, one step";
    press(Qt::Key_S);
    EXPECT_TRUE(QTest::qWaitFor([&] { return read(u"Shop"_s, u"index.htm"_s).contains(u"<B>"_s); }));
    press(Qt::Key_2);
    EXPECT_TRUE(window_->workbench().browsing());
}

TEST_F(MainFormTest, TheFontFormChangesOnlyWhatWasChosen) {
    open(u"Shop"_s);
    EditingControl& editor = window_->workbench().editor();
    editor.execute(EditCommand::kSelectAll);
    QTest::qWait(50);
    prompts_.expect_form(u"frmFont"_s, [&](const FormHand& form) {
        photograph(u"font"_s);
        form.choose(u"font_names"_s, u"Verdana"_s);
        form.click(u"chkItalic"_s);
        form.click(u"OKButton"_s);
    });
    EXPECT_TRUE(choose(u"mnu_font"_s));
    EXPECT_TRUE(editor.text().contains(u"face=Verdana"_s)) << editor.text().toStdString();
    EXPECT_TRUE(editor.text().contains(u"<I>"_s));
    EXPECT_FALSE(editor.text().contains(u"size="_s) || editor.text().contains(u"<B>"_s));
}

TEST_F(MainFormTest, TheTreeShowsPagesByKindAndLoadsOnAClick) {
    open(u"Shop"_s);
    const auto& tree = find<SiteTree>(u"TreeView1"_s);
    QStringList shown;
    for (QTreeWidgetItemIterator item(const_cast<SiteTree*>(&tree)); *item != nullptr; ++item)
        shown.append((*item)->text(0));
    EXPECT_EQ(shown, QStringList({u"Shop"_s, u"HOME PAGE"_s, u"Pages"_s, u"Trips"_s, u"Popups"_s, u"Map"_s}));
    photograph(u"edit"_s);
    click_in_tree(u"_x_Map.htm"_s);
    EXPECT_EQ(page(), u"_x_Map.htm");
    EXPECT_EQ(window_->workbench().page_kind(), PageKind::kPopup);
    EXPECT_EQ(panel(u"panel_page"_s), u"Map  [popup]"_s);
    EXPECT_EQ(SiteTree::page_of(*tree.currentItem()), u"_x_Map.htm");
}

TEST_F(MainFormTest, APageThatCannotBeLoadedLeavesThePageBefore) {
    open(u"Shop"_s);
    QFile::remove(roots_.website(u"Shop"_s) + u"/§_4_Trips.htm"_s);
    QFile::remove(roots_.website(u"Shop"_s) + u"/_4_Trips.htm"_s);
    prompts_.expect_message(u"Error occurred while downloading the document: "_s);
    click_in_tree(u"_4_Trips.htm"_s);
    EXPECT_EQ(page(), u"index.htm");
    EXPECT_EQ(SiteTree::page_of(*find<SiteTree>(u"TreeView1"_s).currentItem()), u"index.htm");
}

struct Leaving {
    const char* how;
    Answer answer;
    bool leaves;
    bool saved;
};

class LeavingTest : public MainFormTest, public testing::WithParamInterface<Leaving> {};

TEST_P(LeavingTest, UnsavedChangesAreAskedAboutBeforeTheyWouldBeLost) {
    const Leaving& leaving = GetParam();
    const QString how = QString::fromLatin1(leaving.how);
    open(u"Shop"_s);
    change_page();
    prompts_.expect_message(u"\"HOME PAGE\" has unsaved changes"_s, leaving.answer);
    bool left = false;
    if (how == "page"_L1) {
        click_in_tree(u"_4_Trips.htm"_s);
        left = page() == u"_4_Trips.htm";
    } else if (how == "website"_L1) {
        left = window_->workbench().open_website(u"Empty"_s);
        EXPECT_EQ(window_->workbench().website(), left ? u"Empty" : u"Shop");
    } else {
        choose(u"FileExit"_s);
        QTest::qWait(10);
        left = !window_->isVisible();
    }
    EXPECT_EQ(left, leaving.leaves);
    EXPECT_EQ(read(u"Shop"_s, u"index.htm"_s).contains(u"changed"_s), leaving.saved);
    EXPECT_EQ(window_->workbench().editor().text().contains(u"changed"_s), !left || how == "exit"_L1);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, LeavingTest,
    testing::Values(Leaving{"page", Answer::kSave, true, true}, Leaving{"page", Answer::kDiscard, true, false},
                    Leaving{"page", Answer::kCancel, false, false}, Leaving{"website", Answer::kSave, true, true},
                    Leaving{"website", Answer::kDiscard, true, false},
                    Leaving{"website", Answer::kCancel, false, false}, Leaving{"exit", Answer::kSave, true, true},
                    Leaving{"exit", Answer::kDiscard, true, false}, Leaving{"exit", Answer::kCancel, false, false}),
    [](const auto& test) {
        const char* answer = test.param.answer == Answer::kSave ? "Save" : test.param.leaves ? "Discard" : "Cancel";
        return std::string(test.param.how) + answer;
    });

TEST_F(MainFormTest, OneCommandAsksAboutUnsavedChangesOnce) {
    open(u"Shop"_s);
    change_page();
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kDiscard);
    const Command command{.name = u"twice"_s, .run = [](Workbench& workbench) {
                              if (workbench.may_leave_page()) workbench.open_website(u"Empty"_s);
                          }};
    window_->workbench().run(command);
    EXPECT_EQ(window_->workbench().website(), u"Empty");

    open(u"Shop"_s);
    change_page();
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kDiscard);
    window_->workbench().run({.name = u"given up"_s, .run = [](Workbench& workbench) { workbench.may_leave_page(); }});
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kCancel);
    EXPECT_FALSE(window_->workbench().open_website(u"Empty"_s));
}

TEST_F(MainFormTest, TheRightClickMenuHoldsTheCommandsThatExist) {
    open(u"Shop"_s);
    emit find<DHTMLEdit>(u"DHTMLEdit1"_s).contextMenuRequested({300, 300});
    auto& menu = find<QMenu>(u"context_menu"_s);
    const QStringList shown = captions(menu.actions());
    for (const QString& entry : {u"Cut"_s, u"Copy"_s, u"Paste"_s, u"Select All"_s, u"Text Paste"_s, u"Font..."_s}) {
        EXPECT_TRUE(shown.contains(entry)) << entry.toStdString();
    }
    EXPECT_FALSE(shown.contains(u"Link to Popup"_s));
    photograph(u"context-menu"_s);
    menu.close();
}

TEST_F(MainFormTest, TheStatusBarCountsLongWorkAndShowsThePageAfterwards) {
    open(u"Shop"_s);
    auto& bar = find<QProgressBar>(u"ProgressBar1"_s);
    {
        ProgressRun run(window_->workbench().progress(), u"Save of page"_s, u"in progress..."_s, 4);
        run.advance(3);
        EXPECT_TRUE(bar.isVisible());
        EXPECT_EQ(bar.value(), 3);
        EXPECT_EQ(panel(u"panel_what"_s), u"Save of page"_s);
        EXPECT_EQ(panel(u"panel_state"_s), u"in progress..."_s);
    }
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(panel(u"panel_what"_s), u""_s);
    EXPECT_EQ(panel(u"panel_page"_s), u"HOME PAGE"_s);
}

}  // namespace
}  // namespace pondera
