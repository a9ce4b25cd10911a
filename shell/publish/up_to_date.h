#pragma once

namespace pondera {

class Workbench;

/// Saves the page under edit and writes the published pages that are missing, before visitors get them; tells what
/// failed.
[[nodiscard]] bool bring_up_to_date(Workbench& workbench);

}  // namespace pondera
