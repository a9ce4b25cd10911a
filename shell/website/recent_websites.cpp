#include "shell/website/recent_websites.h"

#include <QSettings>

#include "base/roots.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kKey = "Recent Websites"_L1;
constexpr qsizetype kMost = 8;

}  // namespace

void remember_website(QSettings& settings, const QString& name) {
    QStringList names = settings.value(kKey).toStringList();
    names.removeAll(name);
    names.prepend(name);
    settings.setValue(kKey, names.mid(0, kMost));
}

QStringList recent_websites(const QSettings& settings, const Roots& roots) {
    QStringList names = settings.value(kKey).toStringList();
    names.removeIf([&](const QString& name) { return !is_website(roots.website(name)); });
    return names;
}

}  // namespace pondera
