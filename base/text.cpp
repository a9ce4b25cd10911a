#include "base/text.h"

#include <QStringMatcher>

namespace pondera {

QString replace_all(const QString& text, const QString& find, const QString& with, Qt::CaseSensitivity sensitivity) {
    if (find.isEmpty()) return text;
    const QStringMatcher matcher(find, sensitivity);
    QString result;
    result.reserve(text.size());
    qsizetype from = 0;
    for (qsizetype hit = matcher.indexIn(text); hit >= 0; hit = matcher.indexIn(text, from)) {
        result.append(QStringView(text).sliced(from, hit - from)).append(with);
        from = hit + find.size();
    }
    return result.append(QStringView(text).sliced(from));
}

QString remove_blocks(const QString& text, const QString& open, const QString& close) {
    QString result;
    qsizetype from = 0;
    for (;;) {
        const qsizetype begin = text.indexOf(open, from, Qt::CaseInsensitive);
        const qsizetype end = begin < 0 ? -1 : text.indexOf(close, begin + open.size(), Qt::CaseInsensitive);
        if (end < 0) return result.append(QStringView(text).sliced(from));
        result.append(QStringView(text).sliced(from, begin - from));
        from = end + close.size();
    }
}

QString without(const QString& text, QStringView characters) {
    QString result = text;
    return result.removeIf([&](QChar c) { return characters.contains(c); });
}

}  // namespace pondera
