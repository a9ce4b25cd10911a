#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "shell/look.h"
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

/// Window tests run on the offscreen platform, with settings and folders of their own, so that they touch nothing of
/// the person's.
int main(int argc, char** argv) {
    using namespace Qt::StringLiterals;
    testing::InitGoogleTest(&argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef Q_OS_UNIX
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
#endif
    const QTemporaryDir home;
    if (!home.isValid()) return EXIT_FAILURE;
    qputenv("PONDERA_HOME", home.filePath(u"Pondera_Folder"_s).toUtf8());
    for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat}) {
        QSettings::setPath(format, QSettings::UserScope, home.filePath(u"settings"_s));
    }

    QApplication application(argc, argv);
    QApplication::setOrganizationName(u"Pondera"_s);
    QApplication::setApplicationName(u"Pondera"_s);
    pondera::set_look(application);
    return RUN_ALL_TESTS();
}
