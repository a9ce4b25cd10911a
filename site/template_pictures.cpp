#include "site/template_pictures.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression& picture_address() {
    static const QRegularExpression kAddress(uR"(media[/\\]img[/\\]([^"'\s<>()?#&/\\]+))"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return kAddress;
}

QString decoded(const QString& name) {
    return QUrl::fromPercentEncoding(name.toUtf8());
}

}  // namespace

QSet<QString> pictures_named_in(const QString& text) {
    QSet<QString> names;
    for (const auto& hit : picture_address().globalMatch(text)) {
        const QString name = decoded(hit.captured(1));
        if (QFileInfo(name).fileName() == name) names += name;
    }
    return names;
}

QString with_renamed_pictures(const QString& text, const QHash<QString, QString>& new_names) {
    QString result;
    qsizetype copied = 0;
    for (const auto& hit : picture_address().globalMatch(text)) {
        const auto found = new_names.constFind(decoded(hit.captured(1)));
        if (found == new_names.constEnd()) continue;
        result.append(QStringView(text).first(hit.capturedStart(1)).sliced(copied)).append(*found);
        copied = hit.capturedEnd(1);
    }
    return result.append(QStringView(text).sliced(copied));
}

}  // namespace pondera
