#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

#include "player/setup_window/setup_window.h"

extern "C" __attribute__((visibility("default"))) pondera::SetupScreen* pnd_setup_screen(const char* title,
                                                                                         const char* icon) {
    static int argc = 1;
    static char program[] = "setup";
    static char* argv[] = {program, nullptr};
    // Both last until the program ends, as the caller expects.
    new QApplication(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setWindowIcon(QIcon(QString::fromLocal8Bit(icon)));
    return new pondera::SetupWindow(QString::fromUtf8(title));
}
