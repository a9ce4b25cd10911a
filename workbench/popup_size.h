#pragma once

#include <QString>

namespace pondera {

/// The size of the window that a popup page opens in, in pixels, as the two texts of its size fields.
struct PopupSize {
    QString width = QStringLiteral("800");
    QString height = QStringLiteral("600");
};

}  // namespace pondera
