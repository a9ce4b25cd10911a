#pragma once

#include <QByteArray>
#include <QString>

#include <gmock/gmock.h>
#include <ostream>

// Qt's texts as all test files write them, and as a failure shows them: text, not code units (GoogleTest finds these
// functions beside Qt's types).

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.toPercentEncoding(" <>=\"'/\\").toStdString() << '"';
}

namespace pondera {

using namespace Qt::StringLiterals;

/// A text that holds that part.
MATCHER_P(Holds, part, "holds " + testing::PrintToString(part)) {
    return arg.contains(part);
}

}  // namespace pondera
