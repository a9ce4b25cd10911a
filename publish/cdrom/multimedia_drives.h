#pragma once

#include <QList>
#include <QString>

namespace pondera {

class Roots;

/// A drive that a multimedia package can be made on.
struct MultimediaDrive {
    QString name;  ///< as the person knows it, with the room on it: "USB STICK (/media/anna/USB STICK, 3.2 GB free)"
    QString root;  ///< native, without closing separator
};

/// The drives of the machine that can be written: the drive root first, then mounted drives and shares.
[[nodiscard]] QList<MultimediaDrive> multimedia_drives(const Roots& roots);

}  // namespace pondera
