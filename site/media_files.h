#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

/// The folder of a Website's pictures, relative to its pages.
inline const QString kPictureFolder = QStringLiteral("media/img");

/// A file name that works as a link on every server: blanks become "-", letters lose their accents ("città" is
/// "citta"), and what is no letter, digit, ".", "-" or "_" is dropped. A name of which nothing is left is
/// `nothing_left`.
[[nodiscard]] QString clean_file_name(const QString& file_name, const QString& nothing_left = QStringLiteral("image"));

/// Makes a file part of a Website and gives its path relative to the Website's pages ("media/video/x.mp4"). A file that
/// lies in the Website under a clean path stays there; any other is copied into `subfolder` (empty: beside the pages)
/// under its clean name. A file that is there already is used when it holds the same bytes, else the copy gets a number
/// ("x-2.mp4"); names that differ in case only count as the same, and those of the program's own files are never free.
/// Beside the pages no copy is ever named like a page of the program: it never begins with "_" and is never the home
/// page. What is no file is 76, a folder or device 5.
[[nodiscard]] FileResult<QString> bring_file_into_website(const QString& file, const QString& website_folder,
                                                          const QString& subfolder);

/// Makes a picture part of a Website, in its folder of pictures.
[[nodiscard]] FileResult<QString> bring_picture_into_website(const QString& picture, const QString& website_folder);

}  // namespace pondera
