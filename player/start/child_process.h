#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pondera {

/// Runs a program that is found on the PATH and waits for its end: its exit code, -1 when it could not be started or
/// was killed.
[[nodiscard]] int run_program(const std::vector<std::string>& command);

/// Does `work` in a child process, so that a window library that ends its process on a machine without a screen ends
/// only that one. `work` is given a function to call once it has succeeded in what it is for, and gives an exit code.
/// True when it called that, or ended with 0. The child ends with this process.
[[nodiscard]] bool succeeds_in_child(const std::function<int(const std::function<void()>& succeeded)>& work);

}  // namespace pondera
