#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// Qt's texts as all test files write them, and as a failure shows them: text, not code units (GoogleTest finds these
// functions beside Qt's types).

namespace pondera {

using namespace Qt::StringLiterals;

}  // namespace pondera

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.toPercentEncoding(" <>=\"'/\\").toStdString() << '"';
}
