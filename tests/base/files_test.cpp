#include "base/files.h"

#include <QFile>

#include "tests/support/small_disk.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(Files, FullDiskIsNoticedAndLeavesTheOldFile) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "mounting a small disk needs root";
    const QString page = disk.file(u"page.htm"_s);
    ASSERT_TRUE(write_file(page, "old page"));

    const TestFolder elsewhere;
    const QString big = elsewhere.put(u"big.htm"_s, QByteArray(3 << 20, 'x'));
    for (const auto& result : {write_file(page, QByteArray(3 << 20, 'x')), copy_file(big, page, IfExists::kReplace)}) {
        ASSERT_FALSE(result);
        EXPECT_EQ(result.error().number, FaultNumber::kDiskFull);
        EXPECT_EQ(read_file(page).value(), "old page");
    }

    // Full to the last block: a small file gets a name but no room.
    ASSERT_TRUE(write_file(disk.file(u"filler"_s), QByteArray((1 << 20) - (3 * 4096), 'x')));
    for (int small = 0; small < 20; ++small) (void)write_file(disk.file(u"filler%1"_s.arg(small)), "x");
    EXPECT_EQ(write_file(page, "small").error().number, FaultNumber::kDiskFull);
    EXPECT_EQ(read_file(page).value(), "old page");
}

TEST(Files, WriteProtectedIsPermissionDenied) {
    const SmallDisk disk;
    const QString page = disk.file(u"page.htm"_s);
    ASSERT_TRUE(write_file(page, "old page"));
    ASSERT_TRUE(disk.mounted() ? disk.make_read_only() : QFile::setPermissions(page, QFile::ReadOwner));
    EXPECT_EQ(write_file(page, "x").error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(copy_file(page, page, IfExists::kReplace).error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(read_file(page).value(), "old page");
    if (!disk.mounted()) GTEST_SKIP() << "mounting a read-only disk needs root";
    EXPECT_EQ(write_file(disk.file(u"new.htm"_s), "x").error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(create_folder(disk.file(u"Shop"_s)).error().number, FaultNumber::kPermissionDenied);
}

TEST(Files, WhatIsInTheWayIsToldAndStays) {
    const TestFolder folder;
    const QString source = folder.put(u"a"_s, "new");
    const QString target = folder.put(u"b"_s, "old");
    EXPECT_EQ(copy_file(source, target, IfExists::kFail).error().number, FaultNumber::kAlreadyExists);
    const auto missing = copy_file(folder.path(u"none"_s), target, IfExists::kReplace);
    EXPECT_EQ(missing.error().number, FaultNumber::kPathNotFound);
    EXPECT_EQ(folder.bytes(u"b"_s), "old");
    ASSERT_TRUE(copy_file(source, target, IfExists::kReplace));
    EXPECT_EQ(folder.bytes(u"b"_s), "new");

    EXPECT_EQ(create_folder(folder.path()).error().number, FaultNumber::kAlreadyExists);
    EXPECT_EQ(create_folder(folder.path(u"no/Shop"_s)).error().number, FaultNumber::kPathNotFound);
    for (int twice = 0; twice < 2; ++twice) EXPECT_TRUE(create_folders(folder.path(u"x/y/z"_s)));
    EXPECT_EQ(remove_file(folder.path(u"none"_s)).error().number, FaultNumber::kPathNotFound);
}

}  // namespace pondera
