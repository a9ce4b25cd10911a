#pragma once

#include <QString>

namespace pondera {

/// The kind of a page, carried by the code between the two leading underscores of its file name.
enum class PageKind {
    kNone,       ///< home page or a file without a code
    kCard,       ///< "_1_"
    kSubject,    ///< "_4_"
    kPhotoShow,  ///< "_2_"
    kProtected,  ///< "_0_"
    kExternal,   ///< "_y_"
    kPopup,      ///< "_x_"
};

/// The kind that a file name's code gives: "_4_", "_y_", "_2_", "_0_" are searched for anywhere in the name, in that
/// order, and the first found decides; after them a name that begins with "_1_" or "_x_" (editing marks aside).
[[nodiscard]] PageKind page_kind(const QString& file_name);

/// The three characters of a kind ("_4_"), empty for kNone.
[[nodiscard]] QString kind_code(PageKind kind);

}  // namespace pondera
