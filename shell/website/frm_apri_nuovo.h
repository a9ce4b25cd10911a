#pragma once

#include "shell/website/picker_form.h"

namespace pondera {

/// Chooses one of the Websites under the Websites root; the choice is its name.
class Frm_Apri_nuovo : public PickerForm {
    Q_OBJECT

  public:
    explicit Frm_Apri_nuovo(Workbench& workbench);
};

}  // namespace pondera
