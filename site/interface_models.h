#pragma once

#include <QString>
#include <QStringList>

namespace pondera {

class Roots;

/// The interface models of the system folder, each once, in alphabetical order. A model is a set of card templates and
/// a menu template whose file names begin with its name.
[[nodiscard]] QStringList list_interface_models(const Roots& roots);

/// The models that the person saved: without those that the program ships with, which cannot be replaced or deleted.
[[nodiscard]] QStringList list_own_interface_models(const Roots& roots);

/// True for the name of a model that the program ships with, in any case.
[[nodiscard]] bool is_shipped_model(const QString& model);

/// The name of a model as the pickers show it.
[[nodiscard]] QString interface_model_display(const QString& model);

/// The numbers of the cards that a model has, in ascending order.
[[nodiscard]] QList<int> interface_model_cards(const Roots& roots, const QString& model);

/// The file name of a Website's own card template: "_§_1_card.htm"; with the model's name in front, that of the system
/// folder.
[[nodiscard]] QString card_file_name(int card);

/// The file name of a Website's own menu template.
[[nodiscard]] QString menu_template_name();

/// The path of a model's card template in the system folder.
[[nodiscard]] QString interface_model_card(const Roots& roots, const QString& model, int card);

/// The path of a model's menu template in the system folder.
[[nodiscard]] QString interface_model_menu(const Roots& roots, const QString& model);

/// The path of the small picture of a model's card; it need not exist.
[[nodiscard]] QString interface_model_preview(const Roots& roots, const QString& model, int card);

}  // namespace pondera
