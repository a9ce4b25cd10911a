#include "player/start/plain_dialog.h"

#include <algorithm>
#include <iostream>
#include <unistd.h>
#include <vector>

#include "player/start/child_process.h"

namespace pondera {

namespace {

using Commands = std::vector<std::vector<std::string>>;

/// The exit code of the first program that could be started, -1 when none could.
int run_first(const Commands& commands) {
    int code = -1;
    const auto ran = std::ranges::find_if(commands, [&](const auto& command) {
        code = run_program(command);
        return code >= 0;
    });
    return ran == commands.end() ? -1 : code;
}

bool at_terminal() {
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

}  // namespace

void tell_plainly(const std::string& title, const std::string& text) {
    std::cerr << text << '\n';
    if (at_terminal()) return;
    std::ignore = run_first({{"zenity", "--info", "--no-markup", "--title", title, "--text", text},
                             {"kdialog", "--title", title, "--msgbox", text},
                             {"xmessage", "-center", "-title", title, text}});
}

bool ask_plainly(const std::string& title, const std::string& text, const std::string& yes, const std::string& no) {
    std::cerr << text << '\n';
    if (at_terminal()) {
        std::cerr << yes << "? (y/n) ";
        std::string answer;
        std::getline(std::cin, answer);
        return answer == "y" || answer == "Y";
    }
    return run_first({{"zenity", "--question", "--no-markup", "--title", title, "--text", text, "--ok-label", yes,
                       "--cancel-label", no},
                      {"kdialog", "--title", title, "--yesno", text, "--yes-label", yes, "--no-label", no},
                      {"xmessage", "-center", "-title", title, "-buttons", yes + ":0," + no + ":1", text}}) == 0;
}

}  // namespace pondera
