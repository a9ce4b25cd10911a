#pragma once

#include "shell/website/picker_form.h"

namespace pondera {

class Roots;

/// Interface models as a picker shows them: their names with the preview of their first card.
[[nodiscard]] QList<PickerEntry> entries_of_models(const Roots& roots, const QStringList& models);

/// Chooses the interface model of a new Website; the choice is the model's name.
class Frm_Selezione_Iniziale : public PickerForm {
    Q_OBJECT

  public:
    explicit Frm_Selezione_Iniziale(Workbench& workbench);
};

/// Chooses the card of a model that the home page is made from.
class Frm_Selezione_Iniziale1 : public PickerForm {
    Q_OBJECT

  public:
    Frm_Selezione_Iniziale1(Workbench& workbench, const QString& model);

    [[nodiscard]] int card() const { return choice().toInt(); }
};

}  // namespace pondera
