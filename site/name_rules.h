#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pondera {

/// Tests a name against the reserved words and the characters that names may not hold. When the name is refused, the
/// offending text to show: the word, or the group of characters that hit, each in single quotes, joined by " , ";
/// what cannot be shown (control characters and the like) is named.
[[nodiscard]] std::optional<QString> Verifica_Nome(const QString& name);

/// The message for a name that Verifica_Nome refused.
[[nodiscard]] QString invalid_name_message(const QString& offending);

/// The message that refuses a new Website's name; nullopt for a good one. Beyond the common rules it may not be one of
/// the folders that lie beside the Websites, which no listing shows.
[[nodiscard]] std::optional<QString> refusal_of_website_name(const QString& name);

/// The message that refuses the name typed for a page of `website`; nullopt for a good one, whose page is then named
/// typed_page_name(typed). `other_pages` are the listed files of the Website, without the page itself when it is being
/// renamed.
[[nodiscard]] std::optional<QString> refusal_of_page_name(const QString& typed, const QString& website,
                                                          const QStringList& other_pages);

/// The message that refuses the name of a menu entry or of an interface model; nullopt for a good one.
[[nodiscard]] std::optional<QString> refusal_of_entry_name(const QString& name);

/// A page name without the ".htm" or ".html" that was typed after it.
[[nodiscard]] QString typed_page_name(const QString& typed);

}  // namespace pondera
