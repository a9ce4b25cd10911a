#include "base/text_file.h"

#include <QFile>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <optional>

#include "base/files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The characters of the bytes 0x80 to 0x9F in windows-1252.
constexpr std::array<char16_t, 32> kWindows1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr QByteArrayView kUtf8Mark("\xEF\xBB\xBF");
constexpr QByteArrayView kUtf16LeMark("\xFF\xFE");
constexpr QByteArrayView kUtf16BeMark("\xFE\xFF");

std::optional<QString> decode_if_valid(QByteArrayView bytes, QStringConverter::Encoding encoding) {
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError()) return std::nullopt;
    return text;
}

QString decode_windows1252(const QByteArray& bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0) c = QChar(kWindows1252[c.unicode() - 0x80]);
    return text;
}

QByteArray encode_windows1252(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const char32_t c : text.toStdU32String()) {
        const auto* high = std::ranges::find(kWindows1252, c);
        if (high != kWindows1252.end())
            bytes += static_cast<char>(0x80 + (high - kWindows1252.begin()));
        else if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
            bytes += static_cast<char>(c);
        else
            bytes += "&#" + QByteArray::number(static_cast<uint>(c)) + ';';
    }
    return bytes;
}

bool is_ascii(const QByteArray& bytes) {
    return std::ranges::none_of(bytes, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// How characters beyond ASCII are to be written into a page that has none yet, by the charset that it declares: the
/// charsets that browsers read as windows-1252, UTF-8, and for all others as references, which mean the same in any.
TextEncoding encoding_of_ascii_page(const QByteArray& bytes) {
    static const QRegularExpression declaration(uR"(charset\s*=\s*["']?\s*([\w:.-]+))"_s,
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression windows1252(u"^(windows-1252|x?-?cp1252|iso-8859-1|latin1|(us-)?ascii)$"_s);
    const QString start = QString::fromLatin1(bytes.first(std::min<qsizetype>(bytes.size(), 4096)));
    const QString charset = declaration.match(start).captured(1).toLower();
    if (windows1252.match(charset).hasMatch()) return TextEncoding::kWindows1252;
    return charset.isEmpty() || charset.startsWith(u"utf"_s) ? TextEncoding::kUtf8 : TextEncoding::kAscii;
}

QByteArray encode_ascii(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const char32_t c : text.toStdU32String()) {
        if (c < 0x80)
            bytes += static_cast<char>(c);
        else
            bytes += "&#" + QByteArray::number(static_cast<uint>(c)) + ';';
    }
    return bytes;
}

QByteArray encode_with(const QString& text, QStringConverter::Encoding encoding, QByteArrayView mark) {
    QStringEncoder encoder(encoding, QStringEncoder::Flag::Stateless);
    return mark.toByteArray() + QByteArray(encoder.encode(text));
}

}  // namespace

TextFile decode_text(const QByteArray& bytes) {
    struct Marked {
        QByteArrayView mark;
        QStringConverter::Encoding codec;
        TextEncoding encoding;
    };
    static constexpr std::array kMarked{Marked{kUtf8Mark, QStringConverter::Utf8, TextEncoding::kUtf8WithBom},
                                        Marked{kUtf16LeMark, QStringConverter::Utf16LE, TextEncoding::kUtf16Le},
                                        Marked{kUtf16BeMark, QStringConverter::Utf16BE, TextEncoding::kUtf16Be}};
    for (const Marked& marked : kMarked) {
        if (!bytes.startsWith(marked.mark)) continue;
        const bool half_character = marked.codec != QStringConverter::Utf8 && bytes.size() % 2 != 0;
        const auto text = decode_if_valid(QByteArrayView(bytes).sliced(marked.mark.size()), marked.codec);
        if (text && !half_character) return {*text, marked.encoding};
        return {decode_windows1252(bytes), TextEncoding::kWindows1252};
    }
    if (is_ascii(bytes)) return {QString::fromLatin1(bytes), encoding_of_ascii_page(bytes)};
    if (auto text = decode_if_valid(bytes, QStringConverter::Utf8)) return {*text, TextEncoding::kUtf8};
    return {decode_windows1252(bytes), TextEncoding::kWindows1252};
}

QByteArray encode_text(const QString& text, TextEncoding encoding) {
    switch (encoding) {
        case TextEncoding::kUtf8WithBom:
            return kUtf8Mark.toByteArray() + text.toUtf8();
        case TextEncoding::kUtf16Le:
            return encode_with(text, QStringConverter::Utf16LE, kUtf16LeMark);
        case TextEncoding::kUtf16Be:
            return encode_with(text, QStringConverter::Utf16BE, kUtf16BeMark);
        case TextEncoding::kWindows1252:
            return encode_windows1252(text);
        case TextEncoding::kAscii:
            return encode_ascii(text);
        case TextEncoding::kUtf8:
            break;
    }
    return text.toUtf8();
}

FileResult<TextFile> read_text_file(const QString& path) {
    const auto bytes = read_file(path);
    if (!bytes) return std::unexpected(bytes.error());
    return decode_text(*bytes);
}

FileResult<void> write_text_file(const QString& path, const QString& text, TextEncoding encoding) {
    return write_file(path, encode_text(text, encoding));
}

FileResult<QByteArray> read_file(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::unexpected(file_error_of(file));
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) return std::unexpected(file_error_of(file));
    return bytes;
}

FileResult<void> write_file(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return std::unexpected(file_error_of(file));
    if (auto written = write_whole(file, bytes); !written) return written;
    if (!file.commit()) return std::unexpected(file_error_of(file));
    return {};
}

}  // namespace pondera
