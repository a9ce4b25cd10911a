#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

/// A file name that works as a link on every server: blanks become "-", letters lose their accents ("città" is
/// "citta"), and what is no letter, digit, ".", "-" or "_" is dropped. A name of which nothing is left is "image".
[[nodiscard]] QString clean_file_name(const QString& file_name);

/// Makes a picture part of a Website and gives its path relative to the Website's pages ("media/img/x.jpg"). A picture
/// that lies in the Website under a clean path stays there; any other is copied into media/img under its clean name. A
/// file that is there already is used when it holds the same bytes, else the copy gets a number ("x-2.jpg"); names that
/// differ in case only count as the same.
[[nodiscard]] FileResult<QString> bring_picture_into_website(const QString& picture, const QString& website_folder);

}  // namespace pondera
