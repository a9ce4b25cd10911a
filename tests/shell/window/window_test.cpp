#include "shell/toolbar.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

class MainFormTest : public WindowFixture {
  protected:
    QString panel(const QString& name) { return find<QLabel>(name).text(); }
    QAction& key(const QString& name) { return *find<QToolBar>(u"Toolbar1"_s).findChild<QAction*>(name); }
    QString text() { return editor().text(); }
};

TEST_F(MainFormTest, NoTwoCommandsShareANameOrKeys) {
    QHash<QString, QString> owners;
    for (const QAction* action : window_->findChildren<QAction*>()) {
        if (action->objectName().isEmpty() || action->parent() == nullptr) continue;
        const QString owner = action->parent()->objectName() + u'/' + action->objectName();
        for (const QString& own : {owner, action->shortcut().toString()}) {
            EXPECT_FALSE(owners.contains(own)) << owner.toStdString() << " and " << owners[own].toStdString();
            if (!own.isEmpty()) owners[own] = owner;
        }
    }
}

TEST_F(MainFormTest, TitlePanelAndKeysFollowTheWebsite) {
    for (const ToolbarKey& each : toolbar_keys())
        EXPECT_TRUE(each.key.isEmpty() || !key(each.key).icon().isNull()) << each.key.toStdString();
    EXPECT_FALSE(key(u"salva"_s).isEnabled());
    open(u"Shop"_s);
    EXPECT_TRUE(key(u"salva"_s).isEnabled());
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO - Shop");
    EXPECT_EQ(panel(u"panel_page"_s), u"HOME PAGE"_s);
    workbench().close_website();
    EXPECT_FALSE(key(u"salva"_s).isEnabled());
    EXPECT_EQ(window_->windowTitle(), u"Pondera   VANTILE PRO  -  Web and Multimedia Editor");
    EXPECT_EQ(panel(u"panel_page"_s), u""_s);
}

TEST_F(MainFormTest, TheMenuKeyOpensTheManagementOnlyWithBothGeneratedFiles) {
    const auto key = std::ranges::find(toolbar_keys(), u"menu"_s, &ToolbarKey::key);
    write(u"Shop"_s, u"media/img/menu_items.js"_s, {});
    EXPECT_EQ(command_of_key(*key, shop()), u"mnu_crea_menu");
    write(u"Shop"_s, u"media/img/pnd.css"_s, {});
    EXPECT_EQ(command_of_key(*key, shop()), u"mnu_management_menu");
    QFile::remove(shop(u"media/img/menu_items.js"_s));
    EXPECT_EQ(command_of_key(*key, shop()), u"mnu_crea_menu");
}

TEST_F(MainFormTest, KeysFormatTextAndShowItsFormat) {
    open(u"Shop"_s);
    editor().execute(EditCommand::kSelectAll);
    key(u"Bold"_s).trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return key(u"Bold"_s).isChecked(); }));
    auto& sizes = find<QComboBox>(u"size_list"_s);
    emit sizes.textActivated(u"5 (18pt)"_s);
    EXPECT_THAT(text(), Holds(u"size=5"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return sizes.currentText() == u"5 (18pt)"; }));
    auto& fonts = find<QComboBox>(u"font_list"_s);
    EXPECT_EQ(fonts.currentText(), u"Times New Roman");
    editor().replace_text(
        u"<HTML><BODY style='font-family: -apple-system, Inter, Arial, sans-serif'>x</BODY></HTML>"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fonts.currentText() == u"Arial"; })) << fonts.currentText().toStdString();
    editor().execute(EditCommand::kSelectAll);

    prompts_.expect_colour(u"#112233"_s);
    EXPECT_TRUE(choose(u"Col_For"_s));
    EXPECT_THAT(text(), Holds(u"#112233"_s));
    EXPECT_EQ(panel(u"panel_modified"_s), u"Unsaved changes"_s);
    EXPECT_TRUE(choose(u"salva"_s));
    EXPECT_EQ(panel(u"panel_modified"_s), u""_s);
    EXPECT_TRUE(read(u"Shop"_s, u"index.htm"_s).contains(u"#112233"_s));
}

TEST_F(MainFormTest, StandardKeysWorkWhileThePageHasTheFocus) {
    open(u"Shop"_s);
    page_view().setFocus();
    const auto press = [&](Qt::Key key) { QTest::keyClick(&page_view(), key, Qt::ControlModifier); };
    const auto holds = [&](const QString& markup, bool held = true) {
        return QTest::qWaitFor([&] { return text().contains(markup) == held; });
    };
    press(Qt::Key_A);
    EXPECT_TRUE(QTest::qWaitFor([&] { return find<QAction>(u"mnu_cut"_s).isEnabled(); }));
    press(Qt::Key_B);
    press(Qt::Key_I);
    EXPECT_TRUE(holds(u"<I>"_s) && holds(u"<B>"_s));
    press(Qt::Key_Z);
    EXPECT_TRUE(holds(u"<I>"_s, false) && holds(u"<B>"_s)) << "one key, one step";
    press(Qt::Key_S);
    EXPECT_TRUE(QTest::qWaitFor([&] { return read(u"Shop"_s, u"index.htm"_s).contains(u"<B>"_s); }));
    press(Qt::Key_2);
    EXPECT_TRUE(workbench().browsing());
}

TEST_F(MainFormTest, TheFontFormChangesOnlyWhatWasChosen) {
    open(u"Shop"_s);
    editor().execute(EditCommand::kSelectAll);
    QTest::qWait(50);
    run_form(u"mnu_font"_s, u"frmFont"_s, [](const FormHand& form) {
        form.choose(u"font_names"_s, u"Verdana"_s).click(u"chkItalic"_s).photograph(u"font"_s).click(u"OKButton"_s);
    });
    EXPECT_TRUE(text().contains(QRegularExpression(u"<FONT face=Verdana><I>|<I><FONT face=Verdana>"_s)))
        << text().toStdString();
}

TEST_F(MainFormTest, AClickInTheTreeLoadsThePageOrKeepsTheOneBefore) {
    open(u"Shop"_s);
    click_in_tree(u"_x_Map.htm"_s);
    EXPECT_EQ(page(), u"_x_Map.htm");
    EXPECT_EQ(panel(u"panel_page"_s), u"Map  [popup]"_s);
    EXPECT_EQ(chosen_in_tree(), u"_x_Map.htm");

    for (const QString& file : {u"/§_4_Trips.htm"_s, u"/_4_Trips.htm"_s}) QFile::remove(shop() + file);
    prompts_.expect_message(u"Error occurred while downloading the document: "_s);
    click_in_tree(u"_4_Trips.htm"_s);
    EXPECT_EQ(page(), u"_x_Map.htm") << "what cannot be loaded leaves the page before";
    EXPECT_EQ(chosen_in_tree(), u"_x_Map.htm");
}

TEST_F(MainFormTest, UnsavedChangesAreAskedAboutBeforeTheyWouldBeLost) {
    for (const QString& how : {u"page"_s, u"website"_s, u"exit"_s}) {
        for (const Answer answer : {Answer::kSave, Answer::kDiscard, Answer::kCancel}) {
            start();
            open(u"Shop"_s);
            const QString change = u"%1 %2"_s.arg(how).arg(static_cast<int>(answer));
            SCOPED_TRACE(change.toStdString());
            change_page(change);
            prompts_.expect_message(u"\"HOME PAGE\" has unsaved changes"_s, answer);
            bool left = false;
            if (how == u"page") {
                click_in_tree(u"_4_Trips.htm"_s);
                left = page() == u"_4_Trips.htm";
            } else if (how == u"website") {
                left = workbench().open_website(u"Empty"_s);
                EXPECT_EQ(workbench().website(), left ? u"Empty" : u"Shop");
            } else {
                choose(u"FileExit"_s);
                QTest::qWait(10);
                left = !window_->isVisible();
            }
            EXPECT_EQ(left, answer != Answer::kCancel);
            EXPECT_EQ(read(u"Shop"_s, u"index.htm"_s).contains(change), answer == Answer::kSave);
            EXPECT_EQ(text().contains(change), !left || how == u"exit");
        }
    }
}

TEST_F(MainFormTest, OneCommandAsksAboutUnsavedChangesOnce) {
    open(u"Shop"_s);
    change_page();
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kDiscard);
    window_->workbench().run({.name = u"twice"_s, .run = [](Workbench& workbench) {
                                  if (workbench.may_leave_page()) workbench.open_website(u"Empty"_s);
                              }});
    EXPECT_EQ(workbench().website(), u"Empty");

    open(u"Shop"_s);
    change_page();
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kDiscard);
    window_->workbench().run({.name = u"given up"_s, .run = [](Workbench& workbench) { workbench.may_leave_page(); }});
    prompts_.expect_message(u"has unsaved changes"_s, Answer::kCancel);
    EXPECT_FALSE(workbench().open_website(u"Empty"_s));
}

TEST_F(MainFormTest, TheRightClickMenuHoldsTheCommandsThatExist) {
    open(u"Shop"_s);
    emit control().contextMenuRequested({300, 300});
    auto& menu = find<QMenu>(u"context_menu"_s);
    const auto entry = [&](const QString& command) { return menu.findChild<QAction*>(command); };
    ASSERT_TRUE(entry(u"mnu_select_all"_s) != nullptr && entry(u"mnu_dim_imm"_s) != nullptr);
    EXPECT_FALSE(entry(u"mnu_dim_imm"_s)->isEnabled()) << "no image is selected";
    entry(u"mnu_select_all"_s)->trigger();
    EXPECT_EQ(editor().selection().type, SelectionType::kText);
    menu.close();
}

}  // namespace pondera
