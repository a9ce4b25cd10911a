#pragma once

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <QtWidgets>

#include <gtest/gtest.h>
#include <memory>

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/main_form.h"
#include "shell/site_tree.h"
#include "tests/support/page_hand.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

/// The real main window over real folders with two Websites: "Shop", with a home page, a page "Trips" and a popup
/// "Map", and "Empty", with a home page alone.
class WindowFixture : public testing::Test {
  protected:
    WindowFixture() { settings_.beginGroup(QStringLiteral("Parametri")); }

    void SetUp() override;

    /// Makes the window anew, as the next start of the program does.
    void start();

    void have_website(const QString& website);  ///< with a home page alone
    void write(const QString& website, const QString& file, const QString& body);
    void write_page(const QString& website, const QString& page, const QString& body);  ///< and its editing copy
    [[nodiscard]] QString read(const QString& website, const QString& file) const;

    template <typename T>
    T& find(const QString& name) {
        T* found = window_->findChild<T*>(name);
        if (found == nullptr) throw std::runtime_error("no " + name.toStdString());
        return *found;
    }

    Workbench& workbench() { return window_->workbench(); }
    EditingControl& editor() { return workbench().editor(); }
    QString page() { return workbench().page(); }
    void open(const QString& website) { ASSERT_TRUE(workbench().open_website(website)); }

    bool choose(const QString& action);  ///< false when the command is disabled
    void run(const QString& action);     ///< chooses a command as soon as the menu offers it
    void run_form(const QString& action, const QString& form, const ScriptedPrompts::Filler& fill,
                  const QStringList& told = {});
    void run_told(const QString& action, const QString& message, Answer answer = Answer::kOk);
    SiteTree& tree() { return find<SiteTree>(QStringLiteral("TreeView1")); }
    QTreeWidgetItem& in_tree(const QString& text);
    QString chosen_in_tree() { return SiteTree::page_of(*tree().currentItem()); }
    void click_in_tree(const QString& page);
    void change_page(const QString& text = QStringLiteral("changed"));  ///< an unsaved change

    /// What the program ships, as its first start brings it to the folders.
    void have_shipped_files();

    DHTMLEdit& control() { return find<DHTMLEdit>(QStringLiteral("DHTMLEdit1")); }
    QWidget& page_view() { return *control().view()->focusProxy(); }  ///< receives the page's mouse and keys
    QWebEnginePage& web_page() { return *control().view()->page(); }

    /// The path of a file of the Website "Shop".
    [[nodiscard]] QString shop(const QString& file = {}) const {
        return QDir(roots_.website(QStringLiteral("Shop"))).filePath(file);
    }

    /// A plain PNG of that size, written below the folder of the test; its path.
    [[nodiscard]] QString make_picture(const QString& file, QSize size) const;

    QTemporaryDir home_;
    Roots roots_{home_.filePath(QStringLiteral("Pondera_Folder"))};
    ScriptedPrompts prompts_;
    QSettings settings_{home_.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    std::unique_ptr<MainForm> window_;
};

}  // namespace pondera
