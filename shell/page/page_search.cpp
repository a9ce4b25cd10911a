#include "shell/page/page_search.h"

#include <QDir>

#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

QString page_to_load(const QString& name) {
    const QString page = published_name(name);
    return page.contains(u".htm"_s, Qt::CaseInsensitive) ? page : page + u".htm"_s;
}

std::optional<QString> find_editing_copy(const QString& folder, const QString& name) {
    const QString page = page_to_load(name);
    QStringList candidates{u'§' + page, u'ç' + page};
    for (int code = 1; code <= 9; ++code) candidates.append(u"§_%1_%2"_s.arg(QString::number(code), page));
    for (const QString& candidate : candidates)
        if (QFileInfo(QDir(folder).filePath(candidate)).isFile()) return candidate;
    return std::nullopt;
}

}  // namespace pondera
