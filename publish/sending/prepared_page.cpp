#include "publish/sending/prepared_page.h"

#include <QRegularExpression>

#include <algorithm>

#include "elements/page_repairs.h"
#include "site/page_references.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr QChar kRoot(0xFDD0);  // no character: no page holds it

/// Where the address ends that stands around `at`: at the quote that it begins with, else at a blank or tag's end.
qsizetype address_end(QStringView text, qsizetype at) {
    const QChar quote = at > 0 ? text[at - 1] : QChar();
    const bool is_quoted = quote == u'"' || quote == u'\'';
    const auto rest = text.sliced(at);
    const auto* end = std::ranges::find_if(rest, [&](QChar c) {
        if (c == u'<' || c == u'>' || c == u'"') return true;
        return is_quoted ? c == quote || c == u'\n' : c.isSpace() || c == u'\'' || c == u')';
    });
    return at + (end - rest.begin());
}

/// The paths below the Websites root as "../NAME/file", with slashes.
QString with_relative_paths(const QString& text, const Roots& roots) {
    static const QRegularExpression kBackslashes(u"\\\\+"_s);
    const QString marked = roots.replace_websites_root(text, QString(kRoot));
    QString result;
    qsizetype copied = 0;
    for (qsizetype at = marked.indexOf(kRoot); at >= 0; at = marked.indexOf(kRoot, copied)) {
        const qsizetype end = address_end(marked, at);
        const QString path = marked.sliced(at + 1, end - at - 1).replace(kBackslashes, u"/"_s);
        result.append(QStringView(marked).sliced(copied, at - copied)).append(u"../").append(path);
        copied = end;
    }
    return result.append(QStringView(marked).sliced(copied));
}

/// The links without the editing marks of the files that they name: visitors have no editing copies.
QString without_marks_in_links(const QString& text, const QString& website) {
    static const QRegularExpression kMark(
        u"(^|[/\\\\])(?:§|&sect;|&#167;|&#xA7;|%C2%A7|%A7|ç(?=index)|(?:&ccedil;|&#231;|&#xE7;|%C3%A7|%E7)(?=index))+"_s,
        QRegularExpression::CaseInsensitiveOption);
    QString result;
    qsizetype copied = 0;
    for (const PageReference& reference : page_references(text)) {
        if (resolve_address(reference.address, website).place != AddressTarget::Place::kWebsite) continue;
        QString written = text.sliced(reference.begin, reference.end - reference.begin);
        if (!kMark.match(written).hasMatch()) continue;
        result.append(QStringView(text).sliced(copied, reference.begin - copied));
        result.append(written.replace(kMark, u"\\1"_s));
        copied = reference.end;
    }
    return copied == 0 ? text : result.append(QStringView(text).sliced(copied));
}

}  // namespace

QString prepared_page(const QString& text, const Roots& roots, const QString& website) {
    // Few pages hold any of it: those that cannot are looked at once.
    static const QRegularExpression kMayPoint(
        u"pondera|\\.\\./|§|çindex|%(?:C2%)?A7|%(?:C3%A7|E7)index|&(?:sect|ccedil|#167|#231|#xA7|#xE7);"_s,
        QRegularExpression::CaseInsensitiveOption);
    if (!text.contains(kMayPoint)) return text;
    return without_marks_in_links(with_own_links_relative(with_relative_paths(text, roots), website), website);
}

}  // namespace pondera
