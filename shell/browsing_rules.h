#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace pondera {

/// What becomes of an address that is followed in browse mode.
enum class LinkTarget {
    kShow,  ///< a page or picture of the Website, or an address without a place of its own (about:, javascript:, data:,
            ///< blob:)
    kMissing,  ///< a file that the visitor would not find: it does not exist or lies outside the Website
    kOutside,  ///< another site, a mail address, or a document that the system opens with its own program
};

[[nodiscard]] LinkTarget link_target(const QUrl& url, const QString& website_folder);

/// The page to edit when the browse view showed `shown_file` (as named in the Website's folder): its published name,
/// the page before
/// (`current_page`) for the blank page and for what is no page, nothing when an editing copy was shown, which is
/// refused.
[[nodiscard]] std::optional<QString> page_to_edit(const QString& shown_file, const QString& current_page);

}  // namespace pondera
