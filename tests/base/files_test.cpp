#include "base/files.h"

#include <random>

#include "base/text_file.h"
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
    const QString nowhere = folder.path(u"no/page.htm"_s);
    EXPECT_EQ(read_file(nowhere).error().number, FaultNumber::kPathNotFound);
    EXPECT_EQ(write_file(nowhere, "x").error().path, nowhere);
    EXPECT_EQ(read_file(folder.path()).error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(write_file(folder.path(), "x").error().number, FaultNumber::kPermissionDenied);
}

TEST(TextFile, EncodingIsReadFromTheBytes) {
    using enum TextEncoding;
    const std::vector<std::tuple<QByteArray, QString, TextEncoding>> cases{
        {"", u""_s, kUtf8},
        {"citt\xC3\xA0 \xE2\x82\xAC\r\n", u"città €\r\n"_s, kUtf8},
        {"\xEF\xBB\xBFpi\xC3\xB9", u"più"_s, kUtf8WithBom},
        {"citt\xE0 \x80 \x81", u"città € \u0081"_s, kWindows1252},
        {QByteArray("\xFF\xFEx\0\xE0\0", 6), u"xà"_s, kUtf16Le},
        {QByteArray("\xFE\xFF\0x\0\xE0", 6), u"xà"_s, kUtf16Be},
        {"overlong \xC0\xAF", u"overlong À¯"_s, kWindows1252},
        // Only ASCII so far: what the page declares is what its browser will take an accent typed later for.
        {"<META charset=ISO-8859-1>", u"<META charset=ISO-8859-1>"_s, kWindows1252},
        {"<META charset=iso-8859-15>", u"<META charset=iso-8859-15>"_s, kAscii},
    };
    for (const auto& [bytes, text, encoding] : cases) {
        const TextFile file = decode_text(bytes);
        EXPECT_EQ(file.text, text);
        EXPECT_EQ(file.encoding, encoding) << bytes.toPercentEncoding().toStdString();
    }
    EXPECT_EQ(encode_text(u"Č 😀 € é"_s, kWindows1252), "&#268; &#128512; \x80 \xE9") << "what the encoding lacks";
    EXPECT_EQ(encode_text(u"é 😀"_s, kAscii), "&#233; &#128512;");
}

TEST(TextFile, AnyBytesComeBackAsTheyWere) {
    std::mt19937 random(20041);
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = QList<QByteArray>{"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", ""}[round % 4];
        for (auto length = random() % 40; length > 0; --length) bytes += static_cast<char>(random());
        const TextFile file = decode_text(bytes);
        EXPECT_EQ(encode_text(file.text, file.encoding), bytes) << bytes.toHex().toStdString();
    }
}

TEST(TextFile, WritingKeepsThePermissionsOfTheFile) {
    const TestFolder folder;
    const QString path = folder.put(u"secret.txt"_s, "old");
    const auto owner_only = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(QFile::setPermissions(path, owner_only));
    ASSERT_TRUE(write_file(path, "new"));
    EXPECT_EQ(folder.bytes(u"secret.txt"_s), "new");
    EXPECT_EQ(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser), owner_only);
}

}  // namespace pondera
