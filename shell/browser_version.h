#pragma once

#include <QString>

namespace pondera {

class Prompts;

/// What the version of the installed HTML component means for pages.
enum class VersionVerdict { kSupported, kOutOfDate, kTooNew };

/// The first three characters decide: "5.5", "6.0" and "7.0" are supported; of the others, a number above 7.0 is newer
/// than this program knows, anything else (text that is no number too) is out of date.
[[nodiscard]] VersionVerdict test_browser_version(const QString& version);

/// Tests the version before a page is converted; when it is refused, tells the person which of the two needs an update.
[[nodiscard]] bool browser_version_allows(const QString& version, Prompts& prompts);

}  // namespace pondera
