#pragma once

#include <QProcess>
#include <QProcessEnvironment>

#include "base/roots.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A real package of a small Website "Shop", with the programs as they are built, and a machine for them: a home
/// folder, and a PATH on which only stand-ins of the desktop's programs lie, which keep what they were called with.
class PackageFixture : public testing::Test {
  protected:
    void SetUp() override;

    /// A page or picture of the Website; the package has to be made after it.
    void have(const QString& file, const QByteArray& bytes) const;

    void make_package() const;
    [[nodiscard]] QString package(const QString& file = {}) const;

    /// Puts a program on the PATH that writes its arguments to a file and ends with that exit code.
    void have_program(const QString& name, int exit_code) const;

    /// What a program of that name was called with, one argument a line; "(missing)" when it was not.
    [[nodiscard]] QString arguments_of(const QString& program) const;

    /// Starts a program of the package.
    void start(QProcess& process, const QString& program) const;

    /// Runs a program of the package to its end; its exit code.
    [[nodiscard]] int run(const QString& program) const;

    [[nodiscard]] QString installed(const QString& file = {}) const;

    TestFolder drive_;
    TestFolder machine_;
    Roots roots_{drive_.path(u"Pondera_Folder"_s)};
};

}  // namespace pondera
