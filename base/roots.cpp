#include "base/roots.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kBaseName("Pondera_Folder");
constexpr QLatin1StringView kWebsitesName("Pondera");
constexpr QLatin1StringView kSystemName("Pondera_System");
constexpr QLatin1StringView kToolsName("Pondera_Tools");
constexpr QLatin1StringView kGraphicsName("Pondera Graphic");
constexpr QLatin1StringView kFtpName("FTP");
constexpr QLatin1StringView kFtpTotalName("FTP_TOTAL");

/// The fixed folders by their depth below the drive root; a path may spell them in any case.
QString fixed_spelling(const QString& segment, qsizetype depth) {
    static constexpr std::array kNames{kBaseName,  kWebsitesName, kGraphicsName, kSystemName,
                                       kToolsName, kFtpName,      kFtpTotalName};
    static constexpr std::array<qsizetype, kNames.size()> kDepths{0, 1, 1, 2, 2, 2, 2};
    for (std::size_t i = 0; i < kNames.size(); ++i)
        if (kDepths[i] == depth && segment.compare(kNames[i], Qt::CaseInsensitive) == 0) return kNames[i];
    return segment;
}

/// A pattern for one or more separators, either way, plain or percent-encoded. It gives none of them back, so that a
/// long run of slashes does not exhaust the matcher.
const QString kSeparator = uR"((?:[/\\]|%2[Ff]|%5[Cc])++)"_s;

/// A pattern for one character of a path in any spelling that markup or a URL gives it.
QString any_spelling(QStringView character) {
    if (character == u"/") return kSeparator;
    if (character.size() == 1 && character[0].unicode() < 0x80 && character[0].isLetterOrNumber())
        return character.toString();
    QStringList spellings{
        QRegularExpression::escape(character),
        u"(?i:%1)"_s.arg(QString::fromLatin1(character.toUtf8().toPercentEncoding({}, character.toUtf8())))};
    if (character == u"&") spellings += u"&amp;"_s;
    return u"(?:%1)"_s.arg(spellings.join(u'|'));
}

/// A pattern for `path` (with "/" as separator) and the separators that close it.
QString path_pattern(const QString& path) {
    QString pattern;
    for (const char32_t c : path.toStdU32String()) pattern += any_spelling(QString::fromUcs4(&c, 1));
    return pattern + kSeparator;
}

/// `text`, in the same length, with U+FFFD for each surrogate without its other half: the matcher refuses a text that
/// holds one.
QString matchable(QString text) {
    if (text.isValidUtf16()) return text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair)
            ++i;
        else if (text[i].isSurrogate())
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

/// What follows a root, with "/" for the percent-encoded separators up to the end of the address.
QString with_plain_separators(QStringView rest) {
    static const QRegularExpression encoded(u"%2F|%5C"_s, QRegularExpression::CaseInsensitiveOption);
    const auto* end =
        std::ranges::find_if(rest, [](QChar c) { return c.isSpace() || QStringView(u"\"'<>").contains(c); });
    const auto length = end - rest.begin();
    return rest.first(length).toString().replace(encoded, u"/"_s).append(rest.sliced(length));
}

}  // namespace

Roots::Roots(const QString& base_folder) : base_folder_(QDir::cleanPath(QDir(base_folder).absolutePath())) {
}

Roots Roots::of_user() {
#ifdef Q_OS_WIN
    return Roots(u"C:/Pondera_Folder"_s);
#else
    const QString chosen = qEnvironmentVariable("PONDERA_HOME");
    return Roots(chosen.isEmpty() ? QDir::home().filePath(kBaseName) : chosen);
#endif
}

QString Roots::drive_root() const {
    return QDir::toNativeSeparators(QFileInfo(base_folder_).path());
}

QString Roots::base_folder() const {
    return QDir::toNativeSeparators(base_folder_);
}

QString Roots::websites() const {
    return QDir::toNativeSeparators(base_folder_ + u'/' + kWebsitesName);
}

QString Roots::system_folder() const {
    return website(kSystemName);
}

QString Roots::tools_folder() const {
    return website(kToolsName);
}

QString Roots::graphics_library() const {
    return QDir::toNativeSeparators(base_folder_ + u'/' + kGraphicsName);
}

QString Roots::ftp_folder() const {
    return website(kFtpName);
}

QString Roots::ftp_total_folder() const {
    return website(kFtpTotalName);
}

QString Roots::website(const QString& name) const {
    return websites() + QDir::separator() + name;
}

QString Roots::native(const QString& fixed_path) const {
    static const QRegularExpression drive(uR"(^[Cc]:[/\\]+)"_s);
    static const QRegularExpression separators(uR"([/\\]+)"_s);
    const auto match = drive.match(fixed_path);
    if (!match.hasMatch()) return fixed_path;
    QStringList segments;
    for (const QString& segment : fixed_path.sliced(match.capturedEnd()).split(separators, Qt::SkipEmptyParts))
        if (segment != u"..")
            segments += segment;
        else if (!segments.isEmpty())
            segments.removeLast();
    for (qsizetype depth = 0; depth < segments.size(); ++depth) {
        const QString spelling = fixed_spelling(segments[depth], depth);
        segments[depth] = spelling;
        if (depth == 0 && spelling != kBaseName) break;
        if (depth == 1 && spelling != kWebsitesName) break;
    }
    if (!segments.isEmpty() && segments.first() == kBaseName) {
        segments.first() = base_folder_;
        return QDir::toNativeSeparators(segments.join(u'/'));
    }
    return QDir(drive_root()).filePath(segments.join(u'/'));
}

QString Roots::replace_websites_root(const QString& page_text, const QString& replacement) const {
    // "C|" and "localhost" are how some programs write file: URLs. A native path counts only where a path can begin, so
    // that an address such as "http://host/home/..." stays.
    const QString scheme = uR"((?i:file(?::|%3A)(?:)"_s + kSeparator + u"localhost)?)"_s;
    const QString drive = uR"((?i:C(?::|%3A|\|)))"_s + kSeparator;
    const QString fixed =
        u"(?:"_s + scheme + kSeparator + u")?"_s + drive + u"(?i:"_s + path_pattern(u"Pondera_Folder/Pondera"_s) + u')';
    const QString native =
        u"(?:"_s + scheme + uR"(|(?<![\w.~%/\\-])))"_s + path_pattern(base_folder_ + u'/' + kWebsitesName);
    const QRegularExpression root(fixed + u'|' + native);

    QString result;
    result.reserve(page_text.size());
    qsizetype from = 0;
    const auto append_until = [&](qsizetype end) {
        const QStringView piece = QStringView(page_text).first(end).sliced(from);
        if (from == 0)
            result.append(piece);
        else
            result.append(with_plain_separators(piece));
    };
    for (auto hits = root.globalMatch(matchable(page_text)); hits.hasNext();) {
        const auto hit = hits.next();
        append_until(hit.capturedStart());
        result.append(replacement);
        from = hit.capturedEnd();
    }
    append_until(page_text.size());
    return result;
}

}  // namespace pondera
