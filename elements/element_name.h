#pragma once

#include <QString>

namespace pondera {

/// The `name` of an element made from a file name or a fixed word: blanks, line ends and the characters _ ! , . ? ; : *
/// / + - become "x", and "style" becomes "stile" ("STYLE" "STILE"), so that no name holds the word that style searches
/// look for.
[[nodiscard]] QString element_name(const QString& file_name);

/// element_name for a new element of `page` that comes from a file: without the characters " < > \ and the editing
/// marks, "image" when nothing is left; a name that the page has already gets a number ("marchio2"), and one that would
/// be read as one of the program's own codes ("S100...", "parco...") gets an "x" in front.
[[nodiscard]] QString free_element_name(const QString& file_name, const QString& page);

/// True when a tag carries one of the codes of the program's own elements ("name=mr", "name=Tasto_Stampa", ...), which
/// a save leaves as they are. A plain substring test, as the reproduction routines make it.
[[nodiscard]] bool has_reserved_name(QStringView tag);

/// True when a tag is a video or audio placeholder: its name begins with "S" and three digits.
[[nodiscard]] bool is_media_placeholder(QStringView tag);

}  // namespace pondera
