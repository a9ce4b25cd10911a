#include "shell/website/frm_selezione_iniziale.h"

#include "base/roots.h"
#include "site/interface_models.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const Help kHelp{u"/_HELP/_6_Pag NEW.htm"_s, u"Help - New Page"_s};

QList<PickerEntry> cards(const Roots& roots, const QString& model) {
    QList<PickerEntry> entries;
    for (const int card : interface_model_cards(roots, model))
        entries += {QString::number(card), u"Card %1"_s.arg(card), interface_model_preview(roots, model, card)};
    return entries;
}

}  // namespace

QList<PickerEntry> entries_of_models(const Roots& roots, const QStringList& models) {
    QList<PickerEntry> entries;
    for (const QString& model : models) {
        const int card = interface_model_cards(roots, model).value(0);
        entries += {model, interface_model_display(model), interface_model_preview(roots, model, card)};
    }
    return entries;
}

Frm_Selezione_Iniziale::Frm_Selezione_Iniziale(Workbench& workbench)
    : PickerForm(workbench,
                 {.form = u"Frm_Selezione_Iniziale"_s,
                  .title = u"New Website: Interface Model"_s,
                  .prompt = u"&Model that the Website is made from"_s,
                  .nothing = u"The system folder holds no interface model."_s,
                  .refusal = u"Select a model."_s,
                  .help = kHelp,
                  .pictures = true},
                 entries_of_models(workbench.roots(), list_interface_models(workbench.roots()))) {
}

Frm_Selezione_Iniziale1::Frm_Selezione_Iniziale1(Workbench& workbench, const QString& model)
    : PickerForm(workbench,
                 {.form = u"Frm_Selezione_Iniziale1"_s,
                  .title = u"New Website: First Page"_s,
                  .prompt = u"&Kind of the first page"_s,
                  .nothing = {},
                  .refusal = u"Choose il tipo di scheda desiderato!"_s,
                  .help = kHelp,
                  .pictures = true},
                 cards(workbench.roots(), model)) {
}

}  // namespace pondera
