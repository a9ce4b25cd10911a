#include "shell/website/frm_nuovo.h"

#include "site/name_rules.h"

namespace pondera {

using namespace Qt::StringLiterals;

Frm_Nuovo::Frm_Nuovo(Workbench& workbench)
    : NameForm(workbench,
               {.form = u"Frm_Nuovo"_s,
                .title = u"New Website"_s,
                .prompt = u"&Type the name of the new Website"_s,
                .note = u"Letters and digits without spaces: the name becomes part of the Website's address."_s,
                .help = {u"/_HELP/_6_File New Proj.htm"_s, u"Help - New Website"_s}},
               refusal_of_website_name) {
}

}  // namespace pondera
