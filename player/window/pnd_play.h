#pragma once

namespace pondera {

/// Shows the page at the path `home_page` in a window until the person closes it, and gives the exit code. `shown` is
/// called with `told` once the page stands in the window. The library "pndplay.so" has it under the name "pnd_play".
using PndPlay = int(int argc, char** argv, const char* home_page, void (*shown)(void* told), void* told);

}  // namespace pondera
