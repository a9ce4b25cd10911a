#include "elements/stacking_level.h"

#include "elements/markup.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kLevelKey = u"Z-INDEX: "_s;
const QString kTemplateLevel = u"Z-INDEX: 100"_s;
constexpr qsizetype kDigitsRead = 4;

}  // namespace

/// Finds the next free stacking level.
QString FzIndex(const QString& page) {
    const QString text = normalise_levels(page);
    int highest = 0;
    for (qsizetype at = text.indexOf(kLevelKey); at >= 0; at = text.indexOf(kLevelKey, at + 1)) {
        QString value = text.mid(at + kLevelKey.size(), kDigitsRead).remove(u';');
        if (const qsizetype blank = value.indexOf(u' '); blank >= 0) value.truncate(blank);
        bool is_number = false;
        const int level = value.toShort(&is_number);
        if (is_number && (highest == 0 || level > highest)) highest = level;
    }
    return QString::number(highest + 1);
}

QString with_free_level(QString markup, const QString& level) {
    return markup.replace(kTemplateLevel, u"Z-INDEX: "_s + level);
}

QString with_picture_level(QString markup) {
    return markup.replace(kTemplateLevel, u"Z-INDEX: 830"_s);
}

}  // namespace pondera
