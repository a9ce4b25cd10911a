#pragma once

namespace pondera {

/// The web engine's sandbox cannot run as root: switches it off then, and only then, and says so on standard error. To
/// be called before the application object is made.
void set_up_engine_sandbox();

}  // namespace pondera
