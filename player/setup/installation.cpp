#include "player/setup/installation.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <set>
#include <system_error>

#include "player/setup/desktop_entry.h"

namespace pondera {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kChunk = 1 << 20;
constexpr auto kProgram = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                          fs::perms::others_read | fs::perms::others_exec;

using Fault = std::unexpected<std::string>;

Fault fault(const std::string& what, const fs::path& path) {
    return Fault(what + "\n" + path.string());
}

/// Whether a line of the list names a file within the folder.
bool is_inside(const fs::path& path) {
    return path.is_relative() && !path.empty() &&
           std::ranges::none_of(path, [](const fs::path& p) { return p == ".."; });
}

std::set<fs::path> read_list(const Installation& installation) {
    std::set<fs::path> files;
    std::ifstream list(installation.list());
    for (std::string line; std::getline(list, line);)
        if (is_inside(line)) files.insert(line);
    return files;
}

bool write_list(const Installation& installation, const std::set<fs::path>& files) {
    std::ofstream list(installation.list());
    for (const fs::path& file : files) list << file.string() << '\n';
    return list.flush().good();
}

/// The files of a package that are installed, relative to it. Links are not followed. `error` is set when the package
/// could not be read to its end, as a scratched disc cannot.
std::set<fs::path> files_to_install(const Package& package, std::error_code& error) {
    const fs::path installer = package.installer().filename();
    std::set<fs::path> files;
    for (const fs::path& file : {fs::path("multimedia.exe"), fs::path("pndplay.so"), installer / "pnd.ico",
                                 installer / "pndsetup.so", installer / "Uninstall.exe"})
        if (fs::exists(package.folder / file, error)) files.insert(file);
    for (fs::recursive_directory_iterator entry(package.pages(), error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path file = entry->path().lexically_relative(package.folder);
        if (entry->is_regular_file(error) && !entry->is_symlink(error) && !file.string().contains('\n'))
            files.insert(file);
    }
    return files;
}

/// Removes files of the folder, then the folders that they leave empty. A folder that was replaced by a link is not
/// followed.
void remove_files(const fs::path& folder, const std::set<fs::path>& files) {
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    std::set<fs::path, std::greater<>> folders;
    for (const fs::path& file : files) {
        const fs::path parent = (folder / file).parent_path();
        if (fs::canonical(parent, error) != (root / file).parent_path()) continue;
        if (!fs::is_directory(fs::symlink_status(folder / file, error))) fs::remove(folder / file, error);
        for (fs::path above = file.parent_path(); !above.empty(); above = above.parent_path()) folders.insert(above);
    }
    // Sorted downwards, a folder comes after those in it.
    for (const fs::path& empty : folders)
        if (fs::is_directory(fs::symlink_status(folder / empty, error))) fs::remove(folder / empty, error);
}

/// Copies one file, which takes its name when it is whole. `moved` is called with the bytes of each piece.
std::expected<bool, std::string> copy(const fs::path& from, const fs::path& to,
                                      const std::function<bool(std::size_t)>& moved) {
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    const fs::path part = to.string() + ".part";
    std::ifstream source(from, std::ios::binary);
    std::ofstream target(part, std::ios::binary);
    if (!source) return fault("This file cannot be read:", from);
    std::vector<char> chunk(kChunk);
    bool go_on = true;
    while (go_on && target && source) {
        source.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        target.write(chunk.data(), source.gcount());
        go_on = moved(static_cast<std::size_t>(source.gcount()));
    }
    target.close();
    const bool read_whole = source.eof() && !source.bad();
    if (go_on && read_whole && target) {
        const std::string ending = to.extension();
        if (ending == ".exe" || ending == ".so") fs::permissions(part, kProgram, error);
        fs::rename(part, to, error);
        if (!error) return true;
    }
    fs::remove(part, error);
    if (!go_on) return false;
    return target && !read_whole ? fault("This file cannot be read:", from)
                                 : fault("There is not enough room, or no permission, for this file:", to);
}

bool write_desktop_entry(const Package& package, const Installation& installation) {
    std::error_code error;
    fs::create_directories(installation.desktop_entry.parent_path(), error);
    const fs::path installer = installation.folder / package.installer().filename();
    std::ofstream entry(installation.desktop_entry);
    entry << desktop_entry_text({installation.website, installation.folder / "multimedia.exe", installer / "pnd.ico",
                                 installer / "Uninstall.exe"});
    return entry.flush().good();
}

/// Whether the desktop entry is that of this installation.
bool owns_desktop_entry(const Installation& installation) {
    std::ifstream entry(installation.desktop_entry);
    const std::string text{std::istreambuf_iterator<char>(entry), {}};
    const fs::path installer = installation.folder / ("Install " + installation.website);
    return text == desktop_entry_text({installation.website, installation.folder / "multimedia.exe",
                                       installer / "pnd.ico", installer / "Uninstall.exe"});
}

std::expected<bool, std::string> copy_package(const Package& package, const Installation& installation,
                                              const std::set<fs::path>& files, const Advance& advance) {
    constexpr std::uintmax_t kUnit = 1024;
    const auto total = static_cast<int>(size_to_install(package) / kUnit) + 1;
    std::uintmax_t bytes = 0;
    for (const fs::path& file : files) {
        auto copied = copy(package.folder / file, installation.folder / file, [&](std::size_t moved) {
            bytes += moved;
            return advance(static_cast<int>(bytes / kUnit), total);
        });
        if (!copied || !*copied) return copied;
    }
    if (!write_desktop_entry(package, installation))
        return fault("The entry among the applications cannot be written:", installation.desktop_entry);
    return true;
}

}  // namespace

Installation Installation::of(const std::string& website) {
    const char* data = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    const fs::path folder =
        data != nullptr && *data == '/' ? fs::path(data) : fs::path(home == nullptr ? "/" : home) / ".local/share";
    const std::string name = website + " Multimedia";
    return {website, folder / name, folder / "applications" / (name + ".desktop")};
}

bool Installation::present() const {
    std::error_code error;
    return fs::is_regular_file(list(), error);
}

std::uintmax_t size_to_install(const Package& package) {
    std::uintmax_t size = 0;
    std::error_code error;
    for (const fs::path& file : files_to_install(package, error)) {
        const std::uintmax_t bytes = fs::file_size(package.folder / file, error);
        if (!error) size += bytes;
    }
    return size;
}

std::expected<bool, std::string> install(const Package& package, const Installation& installation,
                                         const Advance& advance) {
    std::error_code error;
    const bool is_new = !installation.present();
    if (is_new && fs::exists(installation.folder, error))
        return fault("A folder of this name is there already, and it is not of this Multimedia:", installation.folder);
    const std::set<fs::path> files = files_to_install(package, error);
    if (error) return fault("This folder cannot be read:", package.pages());
    std::set<fs::path> gone = read_list(installation);
    std::set<fs::path> all = files;
    all.insert(gone.begin(), gone.end());
    // The list stands before the first file, so that an installation that is cut off can still be removed.
    fs::create_directories(installation.folder, error);
    if (!write_list(installation, all)) {
        fs::remove(installation.list(), error);
        fs::remove(installation.folder, error);
        return fault("This folder cannot be written:", installation.folder);
    }
    auto copied = copy_package(package, installation, files, advance);
    if (!copied || !*copied) {
        if (is_new) std::ignore = uninstall(installation);
        return copied;
    }
    for (const fs::path& file : files) gone.erase(file);
    remove_files(installation.folder, gone);
    if (!write_list(installation, files)) return fault("This file cannot be written:", installation.list());
    return true;
}

std::vector<fs::path> uninstall(const Installation& installation) {
    std::error_code error;
    remove_files(installation.folder, read_list(installation));
    if (owns_desktop_entry(installation)) fs::remove(installation.desktop_entry, error);
    fs::remove(installation.list(), error);
    fs::remove(installation.folder, error);
    std::vector<fs::path> left;
    for (fs::recursive_directory_iterator entry(installation.folder, error), end; !error && entry != end;
         entry.increment(error))
        if (!entry->is_directory(error)) left.push_back(entry->path());
    return left;
}

}  // namespace pondera
