#include "shell/website/frm_nuovo.h"

#include "site/name_rules.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

NameTexts named(NameTexts texts) {
    texts.form = u"Frm_Nuovo"_s;
    return texts;
}

}  // namespace

Frm_Nuovo::Frm_Nuovo(Workbench& workbench)
    : Frm_Nuovo(workbench,
                {.title = u"New Website"_s,
                 .prompt = u"&Type the name of the new Website"_s,
                 .note = u"Letters and digits without spaces: the name becomes part of the Website's address."_s,
                 .help = {u"/_HELP/_6_File New Proj.htm"_s, u"Help - New Website"_s}},
                refusal_of_website_name) {
}

Frm_Nuovo::Frm_Nuovo(Workbench& workbench, NameTexts texts, Refusal refusal)
    : NameForm(workbench, named(std::move(texts)), std::move(refusal)) {
}

}  // namespace pondera
