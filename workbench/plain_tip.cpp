#include "workbench/plain_tip.h"

#include <QTextDocument>

namespace pondera {

QString plain_tip(const QString& text) {
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

}  // namespace pondera
