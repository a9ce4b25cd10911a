#pragma once

#include <QString>

#include "site/page_kind.h"

namespace pondera {

/// The published file name of the home page.
inline const QString kHomePage = QStringLiteral("index.htm");

/// A file name without its extension (".htm", ".html", any case).
[[nodiscard]] QString strip_estensione(const QString& file_name);

/// The display name of a page file: without editing marks, extension and leading kind code; "index" for the home page.
[[nodiscard]] QString strip_tutto(const QString& file_name);

/// True for "index.htm" and its editing copy.
[[nodiscard]] bool is_home_page(const QString& file_name);

/// The name of a page as a person reads it: strip_tutto, but "HOME PAGE" for the home page.
[[nodiscard]] QString display_name(const QString& file_name);

/// What the status bar shows for a page: its display name and the tag of the kind code that its name begins with.
[[nodiscard]] QString status_label(const QString& file_name);

/// The entry of a page or document in a page list: its display name and the tag of its kind ("Trips  ;  [page]"); the
/// home page is "index  ; [index]". A document keeps its extension.
[[nodiscard]] QString page_list_entry(const QString& file_name);

/// The text that a list shows for a page or document: page_list_entry, but "HOME PAGE" for the home page.
[[nodiscard]] QString page_list_display(const QString& file_name);

/// The file name of a page's editing copy: "çindex.htm" for the home page, "§" in front of any other.
[[nodiscard]] QString editing_copy_name(const QString& published);

/// A file name without its editing marks: the published page of an editing copy, any other name as it is.
[[nodiscard]] QString published_name(const QString& file_name);

/// The published file name of the page of that kind and display name: "_4_Trips.htm".
[[nodiscard]] QString page_file_name(PageKind kind, const QString& name);

/// True for page files (".htm", ".html" in any case), whatever their marks and codes.
[[nodiscard]] bool is_page_file(const QString& file_name);

/// True for documents that can be linked to (".doc", ".pdf" in any case).
[[nodiscard]] bool is_document_file(const QString& file_name);

/// True for the files that no page listing shows: interface model files, the blank page, editing copies (pages are
/// listed by their published names) and what other programs leave behind.
[[nodiscard]] bool is_never_listed(const QString& file_name);

}  // namespace pondera
