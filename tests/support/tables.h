#pragma once

#include <QString>

#include <gtest/gtest.h>
#include <initializer_list>

#include "tests/support/qt_text.h"

namespace pondera {

/// Expects of every row, "text → result" or "text | text → result", that `become` turns each text into the result.
template <typename Become>
void expect_results(Become become, std::initializer_list<const char16_t*> rows) {
    constexpr QStringView kArrow = u" → ";
    for (const QStringView row : rows) {
        const qsizetype arrow = row.indexOf(kArrow);
        ASSERT_GE(arrow, 0) << row.toUtf8().toStdString();
        for (const QString& text : row.first(arrow).toString().split(u" | "_s))
            EXPECT_EQ(become(text), row.sliced(arrow + kArrow.size()).toString()) << text.toStdString();
    }
}

/// Expects of every text that `become` leaves it as it is.
template <typename Become>
void expect_unchanged(Become become, std::initializer_list<const char16_t*> texts) {
    for (const QStringView text : texts) EXPECT_EQ(become(text.toString()), text.toString());
}

}  // namespace pondera
