#pragma once

#include <functional>

namespace pondera {

/// What long work calls between its steps: how many of its steps are done, and how many there are. False asks it to
/// stop there. An empty one means that nobody watches.
using Steps = std::function<bool(int done, int total)>;

/// Tells `steps` of the work done; true when the work goes on.
[[nodiscard]] inline bool go_on(const Steps& steps, int done, int total) {
    return !steps || steps(done, total);
}

}  // namespace pondera
