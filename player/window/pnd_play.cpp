#include "player/window/pnd_play.h"

#include <QApplication>
#include <QFileInfo>
#include <QStyleFactory>

#include "player/window/player_window.h"
#include "shell/engine_sandbox.h"

extern "C" __attribute__((visibility("default"))) int pnd_play(int argc, char** argv, const char* home_page,
                                                               void (*shown)(void* told), void* told) {
    pondera::set_up_engine_sandbox();
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    pondera::PlayerWindow window(QString::fromLocal8Bit(home_page));
    QObject::connect(&window, &pondera::PlayerWindow::Shown, &window, [=] { shown(told); });
    QObject::connect(&window, &pondera::PlayerWindow::Failed, &application, [] { QApplication::exit(EXIT_FAILURE); });
    window.show();
    return QApplication::exec();
}
