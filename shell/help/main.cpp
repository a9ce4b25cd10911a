#include <QApplication>

#include "shell/engine_sandbox.h"
#include "shell/help/help_window.h"
#include "shell/look.h"

int main(int argc, char** argv) {
    pondera::set_up_engine_sandbox();
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Pondera"));
    QApplication::setApplicationName(QStringLiteral("Pondera Help"));
    pondera::set_look(application);

    pondera::HelpWindow window(pondera::Roots::of_user());
    window.open(pondera::parse_help_arguments(QApplication::arguments().mid(1)));
    window.show();
    return QApplication::exec();
}
