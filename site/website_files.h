#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pondera {

/// True for the names of the pictures, scripts and styles that belong to the program and stand in every Website's
/// folder of pictures (any case).
[[nodiscard]] bool is_system_file(const QString& file_name);

/// The message that refuses to delete a file by itself; nullopt for a file that may go. It must lie in the Website (a
/// link that leads out of it does not) and be no file of the program: no system file, editing copy, template or
/// publishing record. Pages are deleted as pages.
[[nodiscard]] std::optional<QString> refusal_of_file_deletion(const QString& file, const QString& website_folder);

/// The files of a Website's folder ("media/img") that may be deleted, as paths relative to the pages, in alphabetical
/// order; those of all folders when `subfolder` is empty.
[[nodiscard]] QStringList deletable_files(const QString& website_folder, const QString& subfolder);

}  // namespace pondera
