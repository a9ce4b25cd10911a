#pragma once

#include <QStringList>

namespace pondera {

/// Sorts published page names as people count ("2" before "10"), whatever their case; the home page comes first.
void sort_as_people_count(QStringList& pages);

}  // namespace pondera
