#include "shell/editing/document_checks.h"

#include <QRegularExpression>

namespace pondera {

using namespace Qt::StringLiterals;

FaultNumber fault_of_bytes(const QByteArray& bytes) {
    if (bytes.size() > kLargestPage) return FaultNumber::kTooLarge;
    const bool utf16 = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    if (!utf16 && bytes.contains('\0')) return FaultNumber::kBinary;
    return FaultNumber::kNone;
}

FaultNumber fault_of_text(const QString& text) {
    // A frameset inside a comment, a script or a style is no frameset of the page.
    static const QRegularExpression hidden(
        u"<!--.*?-->|<(script|style|noframes)\\b.*?</\\1\\s*>"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression frameset(u"<frameset[\\s>]"_s, QRegularExpression::CaseInsensitiveOption);
    if (frameset.match(text).hasMatch() && frameset.match(QString(text).remove(hidden)).hasMatch())
        return FaultNumber::kFrameset;

    qsizetype script = 0;
    for (const auto& [open, close] : {std::pair{u"<%"_s, u"%>"_s}, std::pair{u"<?"_s, u"?>"_s}}) {
        for (qsizetype at = text.indexOf(open); at >= 0; at = text.indexOf(open, at)) {
            const qsizetype end = text.indexOf(close, at + 2);
            const qsizetype after = end < 0 ? text.size() : end + 2;
            script += after - at;
            at = after;
        }
    }
    return script * 2 > text.size() ? FaultNumber::kServerScript : FaultNumber::kNone;
}

}  // namespace pondera
