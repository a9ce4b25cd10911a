#pragma once

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

#include "base/roots.h"
#include "shell/main_form.h"
#include "tests/support/scripted_prompts.h"

class QWebEnginePage;

namespace pondera {

/// The real main window over real folders with two Websites: "Shop", with a home page, a page "Trips" and a popup
/// "Map", and "Empty", with a home page alone.
class WindowFixture : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes the window anew, as the next start of the program does.
    void start();

    void write(const QString& website, const QString& file, const QString& body);
    [[nodiscard]] QString read(const QString& website, const QString& file) const;

    template <typename T>
    T& find(const QString& name) {
        T* found = window_->findChild<T*>(name);
        if (found == nullptr) throw std::runtime_error("no " + name.toStdString());
        return *found;
    }

    /// Chooses a command by its action's name; false when it is disabled.
    bool choose(const QString& action);

    /// Clicks the tree's item of a page.
    void click_in_tree(const QString& page);

    /// Makes an unsaved change.
    void change_page(const QString& text = QStringLiteral("changed"));

    /// The value of a script expression in a page shown.
    static QVariant evaluate(QWebEnginePage& page, const QString& script);

    /// Saves a picture of the whole screen when the environment variable PONDERA_PICTURES names a folder.
    void photograph(const QString& name);

    QTemporaryDir home_;
    Roots roots_{home_.filePath(QStringLiteral("Pondera_Folder"))};
    ScriptedPrompts prompts_;
    std::unique_ptr<QSettings> settings_;
    std::unique_ptr<MainForm> window_;
};

}  // namespace pondera
