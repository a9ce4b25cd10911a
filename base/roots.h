#pragma once

#include <QString>

namespace pondera {

/// The fixed folders of the program, as native paths without a closing separator. This is the one place that knows how
/// the fixed drive paths ("C:\Pondera_Folder\Pondera\") lie on this system.
class Roots {
  public:
    /// The folders below `base_folder`, which stands for "C:\Pondera_Folder"; its parent is the drive root.
    explicit Roots(const QString& base_folder);

    /// The folders of this user: below $PONDERA_HOME, by default ~/Pondera_Folder.
    static Roots of_user();

    [[nodiscard]] QString drive_root() const;        ///< stands for "C:\"
    [[nodiscard]] QString base_folder() const;       ///< "C:\Pondera_Folder"
    [[nodiscard]] QString websites() const;          ///< "C:\Pondera_Folder\Pondera": each sub-folder is a Website
    [[nodiscard]] QString system_folder() const;     ///< Websites root + "Pondera_System"
    [[nodiscard]] QString tools_folder() const;      ///< Websites root + "Pondera_Tools"
    [[nodiscard]] QString graphics_library() const;  ///< "C:\Pondera_Folder\Pondera Graphic"
    [[nodiscard]] QString ftp_folder() const;        ///< working folder of publishing
    [[nodiscard]] QString ftp_total_folder() const;  ///< working folder of a total publication

    /// The folder of the Website named `name`.
    [[nodiscard]] QString website(const QString& name) const;

    /// The native path that a fixed path stands for: "C:\Pondera_Folder\Pondera\Shop\index.htm" in any case of its
    /// fixed part and with slashes either way; a path that is not below the drive root comes back unchanged.
    [[nodiscard]] QString native(const QString& fixed_path) const;

    /// `page_text` with every spelling of the Websites root (the fixed one, the native one, as a file: URL,
    /// percent-encoded or not, slashes either way, any case of the fixed one) replaced by `replacement`,
    /// and "/" for the percent-encoded separators in the rest of such an address.
    [[nodiscard]] QString replace_websites_root(const QString& page_text, const QString& replacement) const;

  private:
    QString base_folder_;
};

}  // namespace pondera
