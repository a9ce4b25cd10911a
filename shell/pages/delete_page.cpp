#include "shell/pages/delete_page.h"

#include "elements/image/delete_file.h"
#include "shell/pages/frm_collegamento_popup.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool confirmed(Workbench& workbench, const QString& question, const QList<Answer>& answers) {
    return workbench.prompts().message({question, MessageIcon::kQuestion, answers, u"Delete Page"_s}) == Answer::kOk;
}

bool wants_to_delete(Workbench& workbench) {
    return confirmed(workbench, u"Are you sure you want to delete a page ?"_s, {Answer::kOk, Answer::kCancel});
}

/// Enter alone deletes nothing.
bool really_wants_to_delete(Workbench& workbench) {
    return confirmed(workbench,
                     u"The deletion is not reversible.\nPossible link to the page will not be checked.\n"
                     "Do you want to continue?"_s,
                     {Answer::kCancel, Answer::kOk});
}

/// Shows another page instead of the deleted one, which must not stay open: saving would write it again.
void leave_deleted_page(Workbench& workbench, const QString& shown) {
    workbench.give_up_changes();
    const bool loaded =
        (!shown.isEmpty() && workbench.load(shown)) || (shown != kHomePage && workbench.load(kHomePage));
    if (!loaded) workbench.close_website();
}

/// Brings the editor in step with the files: the open page may be gone, have another name, or have other arrows now.
void follow_deletion(Workbench& workbench, const QString& deleted, const PageOutcome& outcome) {
    const QString open = workbench.page();
    const auto moved = std::ranges::find(outcome.moves, open, &PageMove::from);
    workbench.refresh_tree();
    if (open == deleted) {
        leave_deleted_page(workbench, outcome.page);
    } else if (moved != outcome.moves.end()) {
        workbench.load(moved->to);
    } else if (workbench.editor().changed_on_disk()) {
        workbench.reload();
    }
}

void delete_confirmed_page(Workbench& workbench, const QString& page) {
    // The arrows of the open page may be rewritten; what becomes of the deleted page's changes is clear.
    if (page != workbench.page() && workbench.editor().modified() && !workbench.save()) return;
    PageOutcome outcome;
    {
        ProgressRun run(workbench.progress(), u"Delete Page"_s, u"in progress..."_s, 0);
        outcome = delete_page(workbench.website_folder(), page, run.steps());
    }
    if (!outcome.message.isEmpty()) workbench.prompts().tell(outcome.message, MessageIcon::kCritical);
    if (!outcome.done) return workbench.refresh_tree();
    follow_deletion(workbench, page, outcome);
    const bool media_too = workbench.prompts().yes(
        u"Page deleted.\nAny images, audios, or videos that were used by the deleted page are still part of the "
        "website.\nDo you want to select and delete them now?"_s);
    if (media_too) Cancella_File(workbench);
}

void delete_chosen_page(Workbench& workbench, const QString& page) {
    if (is_home_page(page)) return workbench.prompts().tell(u"You cannot delete the file index.htm"_s);
    if (really_wants_to_delete(workbench)) delete_confirmed_page(workbench, page);
}

}  // namespace

const Help& delete_page_help() {
    static const Help kHelp{u"/_HELP/_6_Pag Delete.htm"_s, u"Help - Delete Page"_s};
    return kHelp;
}

/// Deletes a page from the page list.
void Erase_Vid(Workbench& workbench) {
    if (!wants_to_delete(workbench)) return;
    frm_collegamento_popup pages(workbench, PageListMode::kCancellazione, u"Delete Page"_s, delete_page_help());
    if (workbench.prompts().run(pages)) delete_chosen_page(workbench, pages.choice());
}

/// Deletes the page of the tree.
void mnu_treedelete(Workbench& workbench, const QString& page) {
    if (wants_to_delete(workbench)) delete_chosen_page(workbench, page);
}

}  // namespace pondera
