#include "shell/pages/page_order.h"

#include <QCollator>

#include <algorithm>
#include <vector>

#include "site/page_name.h"

namespace pondera {

void sort_as_people_count(QStringList& pages) {
    // Without a language of its own the system compares character codes.
    const QLocale locale;
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);

    struct Place {
        bool home;
        QCollatorSortKey key;
        QString page;
    };
    std::vector<Place> places;
    places.reserve(pages.size());
    for (const QString& page : pages) {
        places.push_back({is_home_page(page), collator.sortKey(display_name(page)), page});
    }
    std::ranges::stable_sort(places, [](const Place& left, const Place& right) {
        return left.home != right.home ? left.home : left.key < right.key;
    });
    std::ranges::transform(places, pages.begin(), &Place::page);
}

}  // namespace pondera
