#include "player/start/child_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pondera {

namespace {

/// The exit code of a child, -1 when it did not come to its end by itself.
int exit_code_of(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

int run_program(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0) return -1;
    const int code = exit_code_of(child);
    constexpr int kNotFound = 127;
    return code == kNotFound ? -1 : code;
}

bool succeeds_in_child(const std::function<int(const std::function<void()>& succeeded)>& work) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return false;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        close(ends[0]);
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int code = work([&] {
            if (write(ends[1], "1", 1) != 1) std::perror("player");
        });
        std::fflush(nullptr);
        _exit(code);
    }
    close(ends[1]);
    const bool ended_well = exit_code_of(child) == 0;
    char told = 0;
    const bool succeeded = read(ends[0], &told, 1) == 1;
    close(ends[0]);
    return ended_well || succeeded;
}

}  // namespace pondera
