#pragma once

#include <QByteArray>
#include <QString>

#include <ostream>

// GoogleTest finds these beside Qt's types; every test file includes them, so that a failure shows text, not code
// units.

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << '"' << bytes.toPercentEncoding(" <>=\"'/\\").toStdString() << '"';
}
