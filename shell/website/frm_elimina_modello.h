#pragma once

#include "shell/website/picker_form.h"

namespace pondera {

/// Chooses an interface model to delete, among those that the person saved; the choice is its name.
class Frm_Elimina_Modello : public PickerForm {
    Q_OBJECT

  public:
    explicit Frm_Elimina_Modello(Workbench& workbench);
};

}  // namespace pondera
