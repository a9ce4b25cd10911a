#include "tests/player/package_fixture.h"

#include "publish/cdrom/multimedia_package.h"
#include "site/first_start.h"

namespace pondera {

namespace {

constexpr int kEndsWithinMs = 30'000;

}  // namespace

void PackageFixture::SetUp() {
    for (const char* shipped : {PONDERA_SOURCE_DIR "/system", PONDERA_PLAYER_DIR})
        ASSERT_TRUE(install_shipped_files(QString::fromUtf8(shipped), roots_)) << shipped;
    ASSERT_TRUE(QDir(machine_.path()).mkpath(u"home"_s));
    ASSERT_TRUE(QDir(machine_.path()).mkpath(u"bin"_s));
    have(u"çindex.htm"_s, "x");
    have(u"index.htm"_s, "<HTML><HEAD><TITLE>The Shop</TITLE></HEAD><BODY>Home</BODY></HTML>");
}

void PackageFixture::have(const QString& file, const QByteArray& bytes) const {
    drive_.put(u"Pondera_Folder/Pondera/Shop/"_s + file, bytes);
}

void PackageFixture::make_package() const {
    const auto end = create_multimedia(roots_, u"Shop"_s, roots_.drive_root());
    ASSERT_TRUE(end.success()) << end.faults.join(u'\n').toStdString();
}

QString PackageFixture::package(const QString& file) const {
    return drive_.path(u"Shop Multimedia/"_s + file);
}

QString PackageFixture::installed(const QString& file) const {
    return machine_.path(u"home/.local/share/"_s + file);
}

void PackageFixture::have_program(const QString& name, int exit_code) const {
    const QString path = machine_.put(u"bin/"_s + name, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.arguments\"\nexit " +
                                                            QByteArray::number(exit_code) + '\n');
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

QString PackageFixture::arguments_of(const QString& program) const {
    return QString::fromUtf8(machine_.bytes(u"bin/%1.arguments"_s.arg(program)));
}

void PackageFixture::start(QProcess& process, const QString& program) const {
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

int PackageFixture::run(const QString& program) const {
    QProcess process;
    start(process, program);
    EXPECT_TRUE(process.waitForFinished(kEndsWithinMs)) << program.toStdString();
    return process.exitCode();
}

}  // namespace pondera
