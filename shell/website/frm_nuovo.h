#pragma once

#include "shell/name_form.h"

namespace pondera {

/// Asks the name of a new Website, by the rules for such names.
class Frm_Nuovo : public NameForm {
    Q_OBJECT

  public:
    explicit Frm_Nuovo(Workbench& workbench);
};

}  // namespace pondera
