#pragma once

#include "shell/name_form.h"

namespace pondera {

/// Asks the name of something that is made from a card: a page, a popup, an interface model. Title, prompt and help
/// are the command's.
class Frm_Nuova_Scheda : public NameForm {
    Q_OBJECT

  public:
    /// `texts.form` need not be given.
    Frm_Nuova_Scheda(Workbench& workbench, NameTexts texts, Refusal refusal);
};

}  // namespace pondera
