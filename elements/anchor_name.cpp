#include "elements/anchor_name.h"

#include "site/media_files.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongest = 40;

bool is_allowed(QChar c) {
    return c.isLetterOrNumber() ? c.toLower() != u'ç' : c == u'-' || c == u'_' || c == u'.';
}

}  // namespace

std::optional<QString> refusal_of_anchor_name(const QString& name, const QStringList& names_in_use) {
    if (name.trimmed().isEmpty()) return u"Type a name for the anchor."_s;
    for (const QChar c : name) {
        if (is_allowed(c)) continue;
        const QString suggestion = free_anchor_name(name, names_in_use);
        if (c.isSpace()) return u"An anchor's name holds no blanks. Write %1, for example."_s.arg(suggestion);
        return u"The character \"%1\" cannot stand in an anchor's name. Write %2, for example."_s.arg(c, suggestion);
    }
    if (names_in_use.contains(name, Qt::CaseInsensitive))
        return u"This page already has a place named %1. Choose another name."_s.arg(name);
    return std::nullopt;
}

QString free_anchor_name(const QString& words, const QStringList& names_in_use) {
    QString base = clean_file_name(words.simplified(), u"place"_s).left(kLongest);
    while (base.endsWith(u'-') || base.endsWith(u'.')) base.chop(1);
    QString name = base;
    for (int number = 2; names_in_use.contains(name, Qt::CaseInsensitive); ++number)
        name = base + u'-' + QString::number(number);
    return name;
}

}  // namespace pondera
