#include "base/roots.h"
#include "shell/pages/frm_nuova_scheda.h"
#include "shell/website/frm_elimina_modello.h"
#include "shell/website/model_preview.h"
#include "shell/website/website_commands.h"
#include "site/saved_models.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The name that the person gives the model, in the spelling of one that it replaces; nothing when they cancelled.
std::optional<QString> name_of_model(Workbench& workbench) {
    QString name;
    while (true) {
        Frm_Nuova_Scheda form(workbench,
                              {.title = u"Name of Interface Model"_s,
                               .prompt = u"&Type the name of the interface model"_s,
                               .note = u"The cards and the menu of this Website become a model for new Websites."_s,
                               .help = {u"/_HELP/_6_File Save Interface.htm"_s, u"Help - Save Interface Model"_s},
                               .name = name},
                              refusal_of_model_name);
        if (!workbench.prompts().run(form)) return std::nullopt;
        name = form.name();
        const QString present = model_in_use(workbench.roots(), name);
        if (present.isEmpty()) return name;
        if (workbench.prompts().really(u"The model %1 is already present. Do you want to replace it?"_s.arg(present)))
            return present;
    }
}

FileResult<void> save_and_photograph(Workbench& workbench, const QString& name) {
    const ProgressRun wait(workbench.progress(), u"Save of model"_s, u"in progress..."_s, 0);
    auto saved = save_interface_model(workbench.roots(), {workbench.website_folder(), name});
    if (saved) photograph_model(workbench.roots(), name);
    return saved;
}

}  // namespace

/// Saves the cards of the open Website as an interface model.
void Salva_Modello(Workbench& workbench) {
    const auto name = name_of_model(workbench);
    if (!name) return;
    const auto saved = save_and_photograph(workbench, *name);
    if (!saved) {
        return workbench.prompts().tell(
            u"The interface model %1 could not be saved.\n\n%2"_s.arg(*name, fault_sentence(saved.error())),
            MessageIcon::kCritical);
    }
    workbench.prompts().tell(u"Interface model saved:\n"_s + *name, MessageIcon::kInformation);
}

/// Deletes an interface model that the person saved.
void Elimina_Modello(Workbench& workbench) {
    Frm_Elimina_Modello form(workbench);
    if (!workbench.prompts().run(form)) return;
    const QString name = form.choice();
    if (!workbench.prompts().really(u"Are you sure you want to definitely delete\nthe model "_s + name + u'?')) return;
    const auto deleted = delete_interface_model(workbench.roots(), name);
    if (deleted) return;
    workbench.prompts().tell(
        u"The model %1 could not be deleted completely.\n\n%2"_s.arg(name, fault_sentence(deleted.error())),
        MessageIcon::kCritical);
}

}  // namespace pondera
