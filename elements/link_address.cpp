#include "elements/link_address.h"

#include <QRegularExpression>
#include <QUrl>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

using Address = std::expected<QString, QString>;

const QString kNothing = u"Type an address, for example www.example.org or ann@example.org."_s;
const QString kNonsense =
    u"\"%1\" is no address. Addresses look like www.example.org, https://www.example.org/page or "
    "ann@example.org."_s;
const QString kScript = u"A link cannot run a script. Type the address of a page."_s;
const QString kThisComputer =
    u"This is a file of your computer: visitors cannot reach it.\nChoose Page or Document above to link to files of "
    u"the "
    "Website, or to bring one into it."_s;
const QString kOtherKind =
    u"Links to addresses that begin with \"%1:\" do not work in all browsers. Use http, https, mailto or tel."_s;

bool matches(const QString& text, QStringView pattern) {
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern),
                                        QRegularExpression::CaseInsensitiveOption);
    return expression.match(text).hasMatch();
}

bool is_path_of_this_computer(const QString& typed) {
    return matches(typed, uR"(file:.*|[a-z]:.*|\\.*|~/.*|/(?!/).*|\.\.?[\\/].*)");
}

/// The scheme that an address begins with, lower case; a name with a port ("localhost:8080") has none.
QString scheme_of(const QString& typed) {
    static const QRegularExpression kScheme(uR"(^([a-z][a-z0-9+-]*):(?!\d+(/|$)))"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    return kScheme.match(typed).captured(1).toLower();
}

/// A file of the Website that was typed as if it were a place of the web.
bool is_file_name(const QString& typed) {
    return matches(typed, uR"([^/]+\.(html?|php|css|js|pdf|docx?|xlsx?|odt|zip|jpe?g|png|gif|mp3|mp4))") &&
           !typed.startsWith(u"www."_s, Qt::CaseInsensitive);
}

Address nonsense(const QString& typed) {
    return std::unexpected(kNonsense.arg(typed));
}

Address web_address(const QString& typed, const QString& complete, bool needs_dot) {
    const QUrl url(complete, QUrl::TolerantMode);
    const QString host = url.host(QUrl::FullyEncoded);
    static const QRegularExpression kHost(
        uR"(^([a-z0-9_]([a-z0-9_-]*[a-z0-9_])?\.)*[a-z0-9]([a-z0-9-]*[a-z0-9])?$|^\[?[0-9a-f:.]+\]?$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    const bool is_host =
        kHost.match(host).hasMatch() && (!needs_dot || matches(host, uR"(.+\.([a-z]{2}[a-z0-9-]*|\d+)|localhost)"));
    if (!url.isValid() || !is_host || matches(typed, uR"([^/?#]*://[^/?#]*\s.*)")) return nonsense(typed);
    return QString::fromLatin1(url.toEncoded());
}

Address mail_address(const QString& typed, const QString& receiver) {
    if (!matches(receiver.section(u'?', 0, 0), uR"([^\s@:/<>"',;]+@[^\s@:/<>"',;]+\.[^\s@.:/<>"',;]+)"))
        return nonsense(typed);
    return u"mailto:"_s + QString::fromLatin1(QUrl::toPercentEncoding(receiver, "@?&=+%,;:/!$'()*"));
}

Address phone_address(const QString& typed, QString number) {
    number.remove(QRegularExpression(uR"([\s().\/-])"_s));
    if (!matches(number, uR"(\+?[0-9*#]{2,20})")) return nonsense(typed);
    return u"tel:"_s + number.replace(u'#', u"%23"_s);
}

}  // namespace

Address address_from_typed(const QString& typed_with_blanks) {
    const QString typed = typed_with_blanks.trimmed();
    if (typed.isEmpty()) return std::unexpected(kNothing);
    if (is_path_of_this_computer(typed)) return std::unexpected(kThisComputer);
    const QString scheme = scheme_of(typed);
    const QString rest = typed.sliced(scheme.isEmpty() ? 0 : scheme.size() + 1).trimmed();
    if (scheme == u"http" || scheme == u"https") {
        if (!rest.startsWith(u"//"_s)) return nonsense(typed);
        return web_address(typed, scheme + u':' + rest, false);
    }
    if (scheme == u"mailto") return mail_address(typed, rest);
    if (scheme == u"tel") return phone_address(typed, rest);
    if (scheme == u"javascript" || scheme == u"vbscript" || scheme == u"data") return std::unexpected(kScript);
    if (!scheme.isEmpty()) return std::unexpected(kOtherKind.arg(scheme));
    if (typed.startsWith(u"//"_s)) return web_address(typed, u"https:"_s + typed, true);
    if (matches(typed, uR"([^\s@/]+@[^\s@/]+)")) return mail_address(typed, typed);
    if (typed.startsWith(u'+')) return phone_address(typed, typed);
    if (is_file_name(typed)) return std::unexpected(kThisComputer);
    static const QRegularExpression kBlankInHost(uR"(^[^/?#]*\s)"_s);
    if (kBlankInHost.match(typed).hasMatch()) return nonsense(typed);
    return web_address(typed, u"https://"_s + typed, true);
}

}  // namespace pondera
