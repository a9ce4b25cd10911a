#pragma once

#include <QString>

#include <optional>

#include "base/file_error.h"

namespace pondera {

class Roots;

/// A Website's cards that become an interface model.
struct SavedModel {
    QString website_folder;
    QString name;
};

/// The message that refuses a name for an interface model; nullopt for a good one.
[[nodiscard]] std::optional<QString> refusal_of_model_name(const QString& name);

/// The spelling in which a model of that name is there already, in any case; empty when it is free.
[[nodiscard]] QString model_in_use(const Roots& roots, const QString& name);

/// Saves a Website's card templates and menu template as an interface model, in place of one of that name. The pictures
/// that the templates show come along; where the system folder has another picture of that name the copy gets a free
/// name, which the saved templates then have. Fails with 76 when the Website has no card.
[[nodiscard]] FileResult<void> save_interface_model(const Roots& roots, const SavedModel& model);

/// Deletes a model: its cards, its menu template and the pictures of its cards in the pickers. The pictures that the
/// cards showed stay, as others may show them too. Deletes as much as it can; fails with the first file that stays.
[[nodiscard]] FileResult<void> delete_interface_model(const Roots& roots, const QString& model);

}  // namespace pondera
