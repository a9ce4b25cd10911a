#include <QApplication>
#include <QDir>
#include <QSettings>

#include <memory>

#include "base/roots.h"
#include "shell/engine_sandbox.h"
#include "shell/frm_settings.h"
#include "shell/frm_splash.h"
#include "shell/frm_wizard.h"
#include "shell/help_launcher.h"
#include "shell/look.h"
#include "shell/main_form.h"
#include "shell/qt_prompts.h"

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    pondera::set_up_engine_sandbox();
    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Pondera"_s);
    QApplication::setApplicationName(u"Pondera"_s);
    pondera::set_look(application);

    QSettings settings(u"Pondera"_s, u"Pondera"_s);
    settings.beginGroup("Parametri"_L1);
    pondera::QtPrompts prompts;
    const pondera::Roots roots = pondera::Roots::of_user();
    pondera::place_help_viewer(QDir(QApplication::applicationDirPath()).filePath(u"Help.exe"_s), roots);

    std::unique_ptr<pondera::MainForm> window;
    pondera::frmSplash splash([&] {
        window = std::make_unique<pondera::MainForm>(roots, prompts, settings);
        prompts.set_window(window.get());
        window->show();
        if (!pondera::wizard_at_start(settings)) return;
        settings.setValue("Wizard On"_L1, u"True"_s);
        pondera::show_wizard(window->workbench());
    });
    splash.show();
    return QApplication::exec();
}
