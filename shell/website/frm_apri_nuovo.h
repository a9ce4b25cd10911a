#pragma once

#include <QStringList>

#include "shell/website/picker_form.h"

namespace pondera {

/// The Websites that a person can choose from.
struct WebsiteList {
    QString title;
    QString folder;  ///< holds the Websites
    QStringList names;
    Help help;
};

/// Chooses a Website from a list; the choice is its name.
class Frm_Apri_nuovo : public PickerForm {
    Q_OBJECT

  public:
    /// Lists the Websites under the Websites root.
    explicit Frm_Apri_nuovo(Workbench& workbench);

    Frm_Apri_nuovo(Workbench& workbench, const WebsiteList& list);
};

}  // namespace pondera
