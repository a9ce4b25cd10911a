#pragma once

namespace pondera {

class Workbench;

/// Saves the page under edit and writes the published pages that are missing, before visitors get them; tells what
/// failed.
[[nodiscard]] bool bring_up_to_date(Workbench& workbench);

/// Writes the published pages that are missing; tells what failed.
[[nodiscard]] bool publish_missing_pages(Workbench& workbench);

}  // namespace pondera
