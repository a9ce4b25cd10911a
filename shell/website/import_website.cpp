#include <QDir>

#include "base/roots.h"
#include "shell/website/frm_apri_nuovo.h"
#include "shell/website/name_lines.h"
#include "shell/website/website_commands.h"
#include "site/website_import.h"
#include "site/website_listing.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The Website that the person means by a folder: the folder itself, else one of those in it. Nothing when they
/// cancelled; a folder that holds none is refused later.
std::optional<QString> website_meant(Workbench& workbench, const QString& folder) {
    if (is_website(folder)) return folder;
    const QStringList names = websites_in_folder(folder);
    if (names.isEmpty()) return folder;
    Frm_Apri_nuovo form(workbench, {.title = u"Select a Website"_s,
                                    .folder = folder,
                                    .names = names,
                                    .help = {u"/_HELP/_6_File Import.htm"_s, u"Help - Import Website"_s}});
    if (!workbench.prompts().run(form)) return std::nullopt;
    return QDir(folder).filePath(form.choice());
}

bool may_replace(Workbench& workbench, const QString& name) {
    return workbench.prompts().really(u"The Website %1 is already present. Do you want to replace it?"_s.arg(name)) &&
           (name != workbench.website() || workbench.may_leave_page());
}

void report_failure(Workbench& workbench, const WebsiteImport& plan, const FileError& error) {
    QString state = u"The Website %1 was not imported."_s;
    if (plan.replaces)
        state = is_website(workbench.roots().website(plan.name))
                    ? u"The Website %1 is as it was before."_s
                    : u"The Website %1 lies in a folder beside your Websites, whose name begins with \"_new_\"."_s;
    workbench.prompts().tell(u"Error occurred in the copy\n\n%1\n%2"_s.arg(fault_sentence(error), state.arg(plan.name)),
                             MessageIcon::kCritical);
}

void report_success(Workbench& workbench, const WebsiteImport& plan, const QStringList& left_out) {
    QString message = u"Website correctly copied in:\n"_s + workbench.roots().website(plan.name);
    if (!left_out.isEmpty())
        message +=
            u"\n\nNot copied, as it is a link to another place or no part of a Website:\n"_s + name_lines(left_out);
    workbench.prompts().tell(message, MessageIcon::kInformation);
}

}  // namespace

/// Brings a Website from a folder among those of this person.
void Importa_Website(Workbench& workbench) {
    const auto chosen = workbench.prompts().choose_folder(u"Import a Website from a folder"_s, QDir::homePath());
    const auto folder = chosen ? website_meant(workbench, *chosen) : std::nullopt;
    if (!folder) return;
    const auto plan = plan_import(workbench.roots(), *folder);
    if (!plan) return workbench.prompts().tell(plan.error());
    if (plan->replaces && !may_replace(workbench, plan->name)) return;

    const auto imported = [&] {
        ProgressRun run(workbench.progress(), u"Import of Website"_s, u"in progress..."_s, 0, Cancelling::kYes);
        return import_website(workbench.roots(), *plan, run.steps());
    }();
    if (!imported) return report_failure(workbench, *plan, imported.error());
    if (imported->cancelled) return;
    report_success(workbench, *plan, imported->left_out);
    workbench.open_website(plan->name);
}

}  // namespace pondera
