#include "player/setup/desktop_entry.h"

#include <string_view>

namespace pondera {

namespace {

/// `text` with a backslash before each of `characters`.
std::string escaped(std::string_view text, std::string_view characters) {
    std::string result;
    for (const char c : text) {
        if (characters.contains(c)) result += '\\';
        result += c;
    }
    return result;
}

/// A path as the value of Exec: quoted for the command line, "%" doubled, then escaped as every value is.
std::string command_of(const std::filesystem::path& program) {
    std::string command;
    for (const char c : '"' + escaped(program.string(), "\"`$\\") + '"') command.append(c == '%' ? 2 : 1, c);
    return escaped(command, "\\");
}

}  // namespace

std::string desktop_entry_text(const DesktopEntry& entry) {
    return "[Desktop Entry]\nType=Application\nName=" + escaped(entry.name, "\\") +
           "\nExec=" + command_of(entry.program) + "\nIcon=" + escaped(entry.icon.string(), "\\") +
           "\nCategories=Education;\nActions=uninstall;\n\n[Desktop Action uninstall]\nName=Uninstall\nExec=" +
           command_of(entry.uninstaller) + '\n';
}

}  // namespace pondera
