#include "base/text_file.h"

#include <QFile>

#include <random>

#include "tests/support/test_folder.h"

namespace pondera {

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
        {"<META charset = 'CP1252'>", u"<META charset = 'CP1252'>"_s, kWindows1252},
        {"<META charset=iso-8859-15>", u"<META charset=iso-8859-15>"_s, kAscii},
        {"<META charset=utf-8>", u"<META charset=utf-8>"_s, kUtf8},
    };
    for (const auto& [bytes, text, encoding] : cases) {
        const TextFile file = decode_text(bytes);
        EXPECT_EQ(file.text, text);
        EXPECT_EQ(file.encoding, encoding) << bytes.toPercentEncoding().toStdString();
        EXPECT_EQ(encode_text(file.text, file.encoding), bytes);
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

TEST(TextFile, FaultsCarryTheirNumberAndPath) {
    const TestFolder folder;
    const QString nowhere = folder.path(u"no/page.htm"_s);
    EXPECT_EQ(read_text_file(nowhere).error().number, FaultNumber::kPathNotFound);
    EXPECT_EQ(read_text_file(nowhere).error().path, nowhere);
    EXPECT_EQ(write_file(nowhere, "x").error().number, FaultNumber::kPathNotFound);
    EXPECT_EQ(read_file(folder.path()).error().number, FaultNumber::kPermissionDenied);
    EXPECT_EQ(write_file(folder.path(), "x").error().number, FaultNumber::kPermissionDenied);
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
