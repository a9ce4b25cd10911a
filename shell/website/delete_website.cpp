#include "shell/website/name_lines.h"
#include "shell/website/website_commands.h"
#include "site/website_deletion.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool may_delete(Workbench& workbench) {
    const QList<Answer> answers{Answer::kNo, Answer::kYes, Answer::kCancel};
    Prompts& person = workbench.prompts();
    if (!person.really(u"Do you want to delete the current Website?"_s, answers)) return false;
    person.tell(u"The deletion will be IRREVERSIBLE!"_s);
    return person.really(u"You are on the verge of deleting the Website "_s + workbench.website() +
                             u".\n\nAre you sure you want to definitively delete it?"_s,
                         answers);
}

}  // namespace

/// Deletes the open Website.
void Erase_Proj(Workbench& workbench) {
    if (!may_delete(workbench)) return;
    const QString name = workbench.website();
    const QString folder = workbench.website_folder();
    workbench.close_website();
    const auto remains = [&] {
        ProgressRun run(workbench.progress(), u"Deletion of Website"_s, u"in progress..."_s, 0);
        return delete_website(folder, run.steps());
    }();
    workbench.refresh_tree();
    if (!remains) {
        workbench.prompts().tell(u"The Website %1 could not be deleted; all of it is still there.\n\n%2"_s.arg(
                                     name, fault_sentence(remains.error())),
                                 MessageIcon::kCritical);
    } else if (!remains->isEmpty()) {
        workbench.prompts().tell(
            u"The Website %1 is deleted. What could not be deleted or is no part of it remains in\n%2\n\n%3"_s.arg(
                name, folder, name_lines(*remains)));
    }
}

}  // namespace pondera
