#include "shell/pages/frm_nuova_scheda.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

NameTexts named(NameTexts texts) {
    texts.form = u"Frm_Nuova_Scheda"_s;
    return texts;
}

}  // namespace

Frm_Nuova_Scheda::Frm_Nuova_Scheda(Workbench& workbench, NameTexts texts, Refusal refusal)
    : NameForm(workbench, named(std::move(texts)), std::move(refusal)) {
}

}  // namespace pondera
