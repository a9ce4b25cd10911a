#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include "shell/page/unpublished_pages.h"
#include "shell/website/frm_esporta.h"
#include "shell/website/website_commands.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kFolderSetting = "Export Folder"_L1;

/// The folder that was exported to last, at first that of the person's documents.
QString start_folder(Workbench& workbench) {
    const QString last = workbench.settings().value(kFolderSetting).toString();
    if (!last.isEmpty() && QDir(last).exists()) return last;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// Brings the published pages up to date, then writes them all.
FileResult<Work> publish_and_export(Workbench& workbench, const WebsiteExport& plan) {
    ProgressRun run(workbench.progress(), u"Export of Website"_s, u"in progress..."_s, 0, Cancelling::kYes);
    if (auto published = publish_unpublished_pages(workbench.roots(), workbench.website()); !published)
        return std::unexpected(published.error());
    return export_website(workbench.roots(), plan, run.steps());
}

}  // namespace

/// Writes the published files of the open Website into a folder or a ZIP file.
void Esporta_Website(Workbench& workbench) {
    Frm_Esporta form(workbench, start_folder(workbench));
    if (!workbench.prompts().run(form) || !save_changes(workbench)) return;
    const WebsiteExport& plan = form.plan();
    workbench.settings().setValue(kFolderSetting, QFileInfo(plan.place).path());
    const auto exported = publish_and_export(workbench, plan);
    if (!exported) {
        workbench.prompts().tell(u"The Website was not exported.\n\n"_s + fault_sentence(exported.error()),
                                 MessageIcon::kCritical);
    } else if (*exported == Work::kDone) {
        workbench.prompts().tell(u"Website exported to:\n"_s + plan.place, MessageIcon::kInformation);
    }
}

}  // namespace pondera
