#pragma once

#include "shell/name_form.h"

namespace pondera {

/// Asks the name of a Website, by the rules for such names.
class Frm_Nuovo : public NameForm {
    Q_OBJECT

  public:
    /// The name of a new Website.
    explicit Frm_Nuovo(Workbench& workbench);

    /// `texts.form` need not be given.
    Frm_Nuovo(Workbench& workbench, NameTexts texts, Refusal refusal);
};

}  // namespace pondera
