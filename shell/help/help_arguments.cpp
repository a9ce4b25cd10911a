#include "shell/help/help_arguments.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace pondera {

using namespace Qt::StringLiterals;

HelpArguments parse_help_arguments(const QStringList& arguments) {
    static const QRegularExpression kKey(uR"(\+?/(PERCORSO|CAPTION|LEFT|TOP):)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const QString line = arguments.join(u' ');
    QHash<QString, QString> values;
    auto key = kKey.globalMatch(line);
    while (key.hasNext()) {
        const QRegularExpressionMatch match = key.next();
        const qsizetype start = match.capturedEnd();
        const qsizetype end = key.hasNext() ? key.peekNext().capturedStart() : line.size();
        values.insert(match.captured(1).toUpper(), line.mid(start, end - start).trimmed());
    }
    HelpArguments result{values.value(u"PERCORSO"_s), values.value(u"CAPTION"_s), std::nullopt};
    if (values.contains(u"LEFT"_s) && values.contains(u"TOP"_s)) {
        result.position = QPoint(values.value(u"LEFT"_s).toInt(), values.value(u"TOP"_s).toInt());
    }
    return result;
}

QStringList help_arguments(const HelpArguments& arguments) {
    QStringList line{"/PERCORSO:"_L1 + arguments.page, "+/CAPTION:"_L1 + arguments.caption};
    if (arguments.position) {
        line << u"+/LEFT:%1"_s.arg(arguments.position->x()) << u"+/TOP:%1"_s.arg(arguments.position->y());
    }
    return line;
}

QString help_file(const QString& websites_root, const QString& page) {
    const QString folder = QDir(websites_root).filePath(u"_HELP"_s);
    const QString path = QDir::cleanPath(websites_root + u'/' + QString(page).replace(u'\\', u'/'));
    return path.startsWith(folder + u'/') && QFileInfo(path).isFile() ? path : QString();
}

QString help_index() {
    return u"/_HELP/çindex.htm"_s;
}

}  // namespace pondera
