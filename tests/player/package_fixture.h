#pragma once

#include <QProcess>
#include <QProcessEnvironment>

#include "base/roots.h"
#include "publish/cdrom/multimedia_package.h"
#include "site/first_start.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A real package of a small Website "Shop", with the programs as they are
/// built, and a machine for them: a home folder, and a PATH on which only
/// stand-ins of the desktop's programs lie, which keep what they were called
/// with.
class PackageFixture : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* shipped : {PONDERA_SOURCE_DIR "/system", PONDERA_PLAYER_DIR})
            ASSERT_TRUE(install_shipped_files(QString::fromUtf8(shipped), roots_)) << shipped;
        ASSERT_TRUE(QDir(machine_.path()).mkpath(u"home"_s));
        have(u"çindex.htm"_s, "x");
        have(u"index.htm"_s, "<HTML><HEAD><TITLE>The Shop</TITLE></HEAD><BODY>Home</BODY></HTML>");
    }

    /// A page or picture of the Website; the package has to be made after it.
    void have(const QString& file, const QByteArray& bytes) const {
        drive_.put(u"Pondera_Folder/Pondera/Shop/"_s + file, bytes);
    }

    void make_package() const {
        const auto end = create_multimedia(roots_, u"Shop"_s, roots_.drive_root());
        ASSERT_TRUE(end.success()) << end.faults.join(u'\n').toStdString();
    }
    [[nodiscard]] QString package(const QString& file = {}) const { return drive_.path(u"Shop Multimedia/"_s + file); }
    [[nodiscard]] QString installed(const QString& file = {}) const {
        return machine_.path(u"home/.local/share/"_s + file);
    }

    /// Puts a program on the PATH that writes its arguments to a file and ends
    /// with that exit code.
    void have_program(const QString& name, int exit_code) const {
        const QString path =
            machine_.put(u"bin/"_s + name, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.arguments\"\nexit " +
                                               QByteArray::number(exit_code) + '\n');
        ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    /// What a program of that name was called with, one argument a line;
    /// "(missing)" when it was not.
    [[nodiscard]] QString arguments_of(const QString& program) const {
        return QString::fromUtf8(machine_.bytes(u"bin/%1.arguments"_s.arg(program)));
    }

    /// Starts a program of the package.
    void start(QProcess& process, const QString& program) const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"PATH"_s, machine_.path(u"bin"_s));
        environment.insert(u"HOME"_s, machine_.path(u"home"_s));
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.remove(u"XDG_DATA_HOME"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(program, QStringList());
        ASSERT_TRUE(process.waitForStarted()) << program.toStdString();
    }

    /// Runs a program of the package to its end; its exit code.
    [[nodiscard]] int run(const QString& program) const {
        QProcess process;
        start(process, program);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        return process.exitCode();
    }

    TestFolder drive_;
    TestFolder machine_;
    Roots roots_{drive_.path(u"Pondera_Folder"_s)};
};

}  // namespace pondera
