#include "shell/website/frm_elimina_modello.h"

#include "base/roots.h"
#include "shell/website/frm_selezione_iniziale.h"
#include "site/interface_models.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

Frm_Elimina_Modello::Frm_Elimina_Modello(Workbench& workbench)
    : PickerForm(workbench,
                 {.form = u"Frm_Elimina_Modello"_s,
                  .title = u"Delete Interface Model"_s,
                  .prompt = u"&Model to delete"_s,
                  .nothing = u"There is no model of your own. Save one with Save Interface Model in the File menu."_s,
                  .refusal = u"Select a Model!"_s,
                  .help = {u"/_HELP/_6_File Erase Interface.htm"_s, u"Help - Delete Interface Model"_s},
                  .pictures = true},
                 entries_of_models(workbench.roots(), list_own_interface_models(workbench.roots()))) {
}

}  // namespace pondera
