#pragma once

#include <QStringList>

class QSettings;

namespace pondera {

class Roots;

/// Puts a Website that was opened in front of the recent ones; the eight latest are kept.
void remember_website(QSettings& settings, const QString& name);

/// The Websites that were opened last and still exist, the latest first.
[[nodiscard]] QStringList recent_websites(const QSettings& settings, const Roots& roots);

}  // namespace pondera
