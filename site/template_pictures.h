#pragma once

#include <QHash>
#include <QSet>
#include <QString>

namespace pondera {

/// The names of the files of "media/img" that a template names, decoded; without those that would lead elsewhere.
[[nodiscard]] QSet<QString> pictures_named_in(const QString& text);

/// A template's text with files of "media/img" under their new names.
[[nodiscard]] QString with_renamed_pictures(const QString& text, const QHash<QString, QString>& new_names);

}  // namespace pondera
