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
#include "site/first_start.h"

namespace {

using namespace Qt::StringLiterals;

/// Makes the program's folders and brings what it ships with into them, the help viewer too. False, after telling why,
/// when there is no folder to work in; a file that could not be copied is told and the program goes on.
bool prepare_folders(const pondera::Roots& roots, pondera::Prompts& prompts) {
    if (!QDir().mkpath(roots.websites())) {
        prompts.tell(
            u"Pondera keeps its Websites in the folder\n%1\nwhich cannot be made here. Make it yourself, or name "
            "another base folder in the environment variable PONDERA_HOME."_s.arg(
                QDir::toNativeSeparators(roots.websites())),
            pondera::MessageIcon::kCritical);
        return false;
    }
    const QDir programs(QApplication::applicationDirPath());
    for (const QString& shipped : {u"../share/pondera"_s, u"../share/pondera-player"_s}) {
        const auto installed = install_shipped_files(programs.absoluteFilePath(shipped), roots);
        if (!installed) {
            prompts.tell(u"A file that Pondera works with could not be copied:\n%1\n%2"_s.arg(
                QDir::toNativeSeparators(installed.error().path), installed.error().reason));
        }
    }
    place_help_viewer(programs.absoluteFilePath(u"Help.exe"_s), roots);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    pondera::set_up_engine_sandbox();
    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Pondera"_s);
    QApplication::setApplicationName(u"Pondera"_s);
    pondera::set_look(application);

    QSettings settings(u"Pondera"_s, u"Pondera"_s);
    settings.beginGroup("Parametri"_L1);
    const pondera::Roots roots = pondera::Roots::of_user();
    pondera::QtPrompts prompts;
    std::unique_ptr<pondera::MainForm> window;

    pondera::frmSplash splash([&] {
        if (!prepare_folders(roots, prompts)) return QApplication::exit(EXIT_FAILURE);
        window = std::make_unique<pondera::MainForm>(roots, prompts, settings);
        prompts.set_window(window.get());
        prompts.set_help([&window] { window->workbench().show_help({}); });
        window->show();
        if (!pondera::wizard_at_start(settings)) return;
        settings.setValue("Wizard On"_L1, u"True"_s);
        pondera::show_wizard(window->workbench());
    });
    splash.show();
    return QApplication::exec();
}
