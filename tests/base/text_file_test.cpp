#include "base/text_file.h"

#include <QFile>

#include <random>

#include "base/files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(TextFile, EncodingIsReadFromTheBytes) {
    struct Case {
        QByteArray bytes;
        QString text;
        TextEncoding encoding;
    };
    const std::vector<Case> cases{
        {"", u""_s, TextEncoding::kUtf8},
        {"citt\xC3\xA0 \xE2\x82\xAC\r\n", u"città €\r\n"_s, TextEncoding::kUtf8},
        {"\xEF\xBB\xBF"
         "citt\xC3\xA0",
         u"città"_s, TextEncoding::kUtf8WithBom},
        {"citt\xE0 \x80 \x81", u"città € \u0081"_s, TextEncoding::kWindows1252},
        {QByteArray("\xFF\xFE"
                    "a\0\xE0\0",
                    6),
         u"aà"_s, TextEncoding::kUtf16Le},
        {QByteArray("\xFE\xFF"
                    "\0a\0\xE0",
                    6),
         u"aà"_s, TextEncoding::kUtf16Be},
        {"overlong \xC0\xAF", u"overlong À¯"_s, TextEncoding::kWindows1252},
        // Only ASCII so far: what the page declares is what its browser will take an accent typed later for.
        {"<META charset=ISO-8859-1>", u"<META charset=ISO-8859-1>"_s, TextEncoding::kWindows1252},
        {"<META charset = 'CP1252'>", u"<META charset = 'CP1252'>"_s, TextEncoding::kWindows1252},
        {"<META charset=iso-8859-15>", u"<META charset=iso-8859-15>"_s, TextEncoding::kAscii},
        {"<META charset=utf-8>", u"<META charset=utf-8>"_s, TextEncoding::kUtf8},
    };
    for (const Case& c : cases) {
        const TextFile file = decode_text(c.bytes);
        EXPECT_EQ(file.text, c.text);
        EXPECT_EQ(file.encoding, c.encoding) << c.bytes.toPercentEncoding().toStdString();
        EXPECT_EQ(encode_text(file.text, file.encoding), c.bytes);
    }
}

TEST(TextFile, AnyBytesComeBackAsTheyWere) {
    std::mt19937 random(20041);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = round % 3 == 0 ? "\xEF\xBB\xBF" : round % 3 == 1 ? "\xFF\xFE" : "";
        for (auto length = random() % 40; length > 0; --length) bytes += static_cast<char>(random());
        const TextFile file = decode_text(bytes);
        EXPECT_EQ(encode_text(file.text, file.encoding), bytes) << bytes.toHex().toStdString();
    }
}

TEST(TextFile, CharacterThatTheEncodingLacksBecomesAReference) {
    EXPECT_EQ(encode_text(u"Č 😀 € é"_s, TextEncoding::kWindows1252), "&#268; &#128512; \x80 \xE9");
    EXPECT_EQ(encode_text(u"é 😀"_s, TextEncoding::kAscii), "&#233; &#128512;");
}

TEST(TextFile, FaultsCarryTheirNumberAndPath) {
    const QTemporaryDir folder;
    const auto missing = read_text_file(folder.filePath(u"no.htm"_s));
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().number, FaultNumber::kPathNotFound);
    EXPECT_TRUE(missing.error().path.endsWith(u"no.htm"));
    const auto a_folder = read_file(folder.path());
    ASSERT_FALSE(a_folder);
    EXPECT_EQ(a_folder.error().number, FaultNumber::kPermissionDenied);
    const auto no_folder = write_file(folder.filePath(u"no/page.htm"_s), "x");
    ASSERT_FALSE(no_folder);
    EXPECT_EQ(no_folder.error().number, FaultNumber::kPathNotFound);
    const auto onto_folder = write_file(folder.path(), "x");
    ASSERT_FALSE(onto_folder);
    EXPECT_EQ(onto_folder.error().number, FaultNumber::kPermissionDenied);
}

TEST(TextFile, WritingKeepsThePermissionsOfTheFile) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"secret.txt"_s);
    const auto owner_only = QFile::ReadOwner | QFile::WriteOwner;
    ASSERT_TRUE(write_file(path, "old"));
    ASSERT_TRUE(QFile::setPermissions(path, owner_only));
    ASSERT_TRUE(write_file(path, "new"));
    EXPECT_EQ(read_file(path).value(), "new");
    EXPECT_EQ(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser), owner_only);
}

}  // namespace

}  // namespace pondera
