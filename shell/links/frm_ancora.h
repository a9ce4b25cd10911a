#pragma once

#include "shell/name_form.h"

namespace pondera {

/// The help page of anchors.
[[nodiscard]] const Help& anchor_help();

/// Asks for the name of the anchor at the caret's place or on the selected words. One that is there already can be
/// renamed or removed.
class frm_ancora : public NameForm {
    Q_OBJECT

  public:
    explicit frm_ancora(Workbench& workbench);

    [[nodiscard]] bool removes() const { return removes_; }  ///< the person wants the anchor away

  private:
    frm_ancora(Workbench& workbench, const QString& name_now);

    bool removes_ = false;
};

}  // namespace pondera
