#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pondera {

/// The folder of the running program, links on the way resolved.
[[nodiscard]] std::filesystem::path program_folder();

/// A multimedia package: the Website's pages in a folder of its name, and beside it the folder "Install NAME". The
/// folder that holds both has any name: on a disc it is the disc itself.
struct Package {
    std::filesystem::path folder;
    std::string website;

    [[nodiscard]] std::filesystem::path pages() const { return folder / website; }
    [[nodiscard]] std::filesystem::path home_page() const { return pages() / "index.htm"; }
    [[nodiscard]] std::filesystem::path installer() const { return folder / ("Install " + website); }
};

/// The package in `folder`. A folder with a home page counts before others when the folder "Install NAME" stands beside
/// it; without that, the first of them by name.
[[nodiscard]] std::optional<Package> package_in(const std::filesystem::path& folder);

/// The Website's name that a folder "Install NAME" is named for; empty for other folders.
[[nodiscard]] std::string website_of_installer(const std::filesystem::path& installer);

/// The package that the folder `installer` belongs to: the one around it, else one on any disc of the machine.
[[nodiscard]] std::optional<Package> package_of_installer(const std::filesystem::path& installer);

}  // namespace pondera
