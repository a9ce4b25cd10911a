#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pondera {

/// The message that refuses an anchor's name, nothing for a good one. A name is made of letters, digits, "-", "_" and
/// "." (the editing marks, which a save takes out of links, are none of them) and stands once on its page, whatever its
/// case.
[[nodiscard]] std::optional<QString> refusal_of_anchor_name(const QString& name, const QStringList& names_in_use);

/// A name for an anchor at these words: "Our trips" is "Our-trips", or "Our-trips-2" when that is in use; words without
/// a letter that a name can hold give "place".
[[nodiscard]] QString free_anchor_name(const QString& words, const QStringList& names_in_use);

}  // namespace pondera
