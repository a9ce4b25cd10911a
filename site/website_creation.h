#pragma once

#include <QString>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// What a new Website is made of: its name, the interface model and the card that its home page is made from.
struct NewWebsite {
    QString name;
    QString model;
    int card = 1;
};

/// Creates the folder of a new Website; fails with 58 when its name is in use.
[[nodiscard]] FileResult<void> create_website_folder(const Roots& roots, const QString& name);

/// Removes a new Website's folder again while it is still empty; a folder that holds anything stays.
void abandon_website_folder(const Roots& roots, const QString& name);

/// Fills the folder of a new Website: media folders, the model's templates, the pictures that they show, the home page
/// and, last, its editing copy, which makes the folder a Website. Files written before a failure stay.
[[nodiscard]] FileResult<void> fill_website(const Roots& roots, const NewWebsite& website);

/// Creates the folders for pictures, video and audio of a Website, as far as they are missing.
[[nodiscard]] FileResult<void> create_media_folders(const QString& website_folder);

/// The message for a Website that could not be created.
[[nodiscard]] QString website_creation_message(const FileError& error);

}  // namespace pondera
