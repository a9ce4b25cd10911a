#include "player/start/package.h"

#include <cstdio>
#include <memory>
#include <mntent.h>
#include <system_error>
#include <vector>

namespace pondera {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kInstall = "Install ";

bool is_file(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool is_folder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// Where discs and drives are mounted.
std::vector<fs::path> mounted_folders() {
    std::vector<fs::path> folders;
    const std::unique_ptr<FILE, int (*)(FILE*)> mounts(setmntent("/proc/self/mounts", "r"), &endmntent);
    if (!mounts) return folders;
    while (const mntent* entry = getmntent(mounts.get())) folders.emplace_back(entry->mnt_dir);
    return folders;
}

bool is_whole(const Package& package) {
    return is_file(package.home_page()) && is_folder(package.installer());
}

}  // namespace

fs::path program_folder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

std::optional<Package> package_in(const fs::path& folder) {
    std::optional<Package> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const Package package{folder, entry->path().filename()};
        if (!is_file(package.home_page())) continue;
        const bool whole = is_whole(package);
        const bool better =
            !found || whole > is_whole(*found) || (whole == is_whole(*found) && package.website < found->website);
        if (better) found = package;
    }
    return found;
}

std::string website_of_installer(const fs::path& installer) {
    const std::string name = installer.filename();
    return name.starts_with(kInstall) ? name.substr(kInstall.size()) : std::string();
}

std::optional<Package> package_of_installer(const fs::path& installer) {
    const std::string website = website_of_installer(installer);
    if (website.empty()) return {};
    const Package around{installer.parent_path(), website};
    if (is_whole(around)) return around;
    for (const fs::path& mounted : mounted_folders())
        for (const fs::path& folder : {mounted, mounted / (website + " Multimedia")})
            if (const Package package{folder, website}; is_whole(package)) return package;
    return {};
}

}  // namespace pondera
