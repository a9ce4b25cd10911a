#include "elements/image/delete_file.h"

#include "elements/image/frm_cancella_imm.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// What the Website's files refer to, and what the page under edit refers to before it is saved.
FileUsage usage_in(Workbench& workbench) {
    ProgressRun run(workbench.progress(), u"Wait"_s, u"in progress..."_s, 0, Cancelling::kYes);
    FileUsage usage = FileUsage::of_website(workbench.website_folder(), run.steps());
    if (!workbench.page().isEmpty()) usage.add_page(workbench.page(), workbench.editor().text(), workbench.website());
    return usage;
}

}  // namespace

/// Deletes files of the Website.
void Cancella_File(Workbench& workbench) {
    if (workbench.website().isEmpty()) return;
    Frm_Cancella_Imm form(workbench, usage_in(workbench));
    workbench.prompts().run(form);
    if (form.has_deleted()) workbench.refresh_tree();
}

}  // namespace pondera
