#include "base/roots.h"
#include "shell/website/frm_nuovo.h"
#include "shell/website/name_lines.h"
#include "shell/website/website_commands.h"
#include "site/name_rules.h"
#include "site/website_copy.h"
#include "site/website_creation.h"
#include "site/website_listing.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> refusal_of(const Roots& roots, const QString& name) {
    if (auto refusal = refusal_of_website_name(name)) return refusal;
    if (name_in_use(roots, name).isEmpty()) return std::nullopt;
    return website_creation_message({FaultNumber::kAlreadyExists, {}, {}});
}

void report_failure(Workbench& workbench, const WebsiteCopy& copy, const FileError& error) {
    const bool reading = error.path.startsWith(workbench.website_folder());
    const QString what = reading ? u"Error occurred in the copy"_s : website_creation_message(error);
    workbench.prompts().tell(u"%1\n\n%2\nThe Website was not saved as %3."_s.arg(what, fault_sentence(error), copy.to),
                             MessageIcon::kCritical);
}

}  // namespace

/// Saves the open Website under another name, which is then the open one.
void salva_con_nome2(Workbench& workbench) {
    Frm_Nuovo form(workbench,
                   {.title = u"Save Website as"_s,
                    .prompt = u"&Type the new name of the Website"_s,
                    .note = u"The Website is copied with all its pages and pictures; you go on working in the copy."_s,
                    .help = {u"/_HELP/_6_File Save As.htm"_s, u"Help - Save Website as"_s}},
                   [&](const QString& name) { return refusal_of(workbench.roots(), name); });
    if (!workbench.prompts().run(form) || !workbench.may_leave_page()) return;

    const WebsiteCopy copy{workbench.website(), form.name()};
    const auto copied = [&] {
        ProgressRun run(workbench.progress(), u"Copy of Website"_s, u"in progress..."_s, 0, Cancelling::kYes);
        return copy_website(workbench.roots(), copy, run.steps());
    }();
    if (!copied) return report_failure(workbench, copy, copied.error());
    if (copied->cancelled) return;
    if (!copied->left_out.isEmpty())
        workbench.prompts().tell(u"Not copied, as it is a link to another place:\n"_s + name_lines(copied->left_out));
    workbench.open_website(copy.to);
}

}  // namespace pondera
