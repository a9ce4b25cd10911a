#pragma once

#include <QString>

#include "base/text_file.h"

namespace pondera {

class ExternalFiles;

/// A page's text with those of its scripts and styles in files of their own that hold what publishing takes out of
/// pages or turns ("\", editing marks). The files are named after `name`, in the encoding of the page. `text` already
/// has the Website's addresses.
[[nodiscard]] QString with_code_in_files(const QString& text, const QString& name, TextEncoding encoding,
                                         ExternalFiles& files);

}  // namespace pondera
