#include "shell/pages/external_page_command.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

#include "base/files.h"
#include "base/text_file.h"
#include "shell/editing/document_checks.h"
#include "shell/page/page_faults.h"
#include "shell/pages/frm_nuova_scheda.h"
#include "site/external_page.h"
#include "site/name_rules.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "site/website_listing.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kFolderSetting = u"External Page Folder"_s;
constexpr qsizetype kMostNames = 10;
constexpr qsizetype kLongestName = 80;

const Help& help() {
    static const Help kHelp{u"/_HELP/_6_Pag External.htm"_s, u"Help - External Web Page"_s};
    return kHelp;
}

QString start_folder(Workbench& workbench) {
    const QString last = workbench.settings().value(kFolderSetting).toString();
    if (!last.isEmpty() && QDir(last).exists()) return last;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// Why a file cannot become a page, by the rules of the editing control.
FaultNumber fault_of_file(const QString& file) {
    if (QFileInfo(file).size() > kLargestPage) return FaultNumber::kTooLarge;
    const auto bytes = read_file(file);
    if (!bytes) return bytes.error().number;
    const FaultNumber fault = fault_of_bytes(*bytes);
    return fault == FaultNumber::kNone ? fault_of_text(decode_text(*bytes).text) : fault;
}

std::optional<QString> choose_name(Workbench& workbench, const QString& file) {
    const auto refusal = [&workbench](const QString& typed) -> std::optional<QString> {
        const QString folder = workbench.website_folder();
        if (auto message = refusal_of_page_name(typed, workbench.website(), list_pages(folder))) return message;
        const QString used = refusal_of_used_name(folder, PageKind::kExternal, typed_page_name(typed));
        return used.isEmpty() ? std::nullopt : std::optional(used);
    };
    Frm_Nuova_Scheda form(workbench,
                          {.form = {},
                           .title = u"External Web Page"_s,
                           .prompt = u"&Type the name of the page"_s,
                           .note = u"3 to 63 characters, without spaces. The page becomes part of your Website."_s,
                           .help = help(),
                           .name = external_page_name(file)},
                          refusal);
    if (!workbench.prompts().run(form)) return std::nullopt;
    return typed_page_name(form.name());
}

/// Some names, one a line and short enough to read.
QString lines(const QStringList& names, qsizetype most) {
    QString text;
    for (const QString& name : names.first(std::min(most, names.size())))
        text += u'\n' + (name.size() > kLongestName ? name.first(kLongestName) + u"..."_s : name);
    return names.size() > most ? text + u"\nand %1 more"_s.arg(names.size() - most) : text;
}

/// What the person has to know of the page that was brought in; empty when nothing.
QString report(const BroughtPage& page) {
    const auto links = std::min(page.own_links.size(), std::max(kMostNames / 2, kMostNames - page.left_out.size()));
    QStringList parts;
    if (!page.left_out.isEmpty())
        parts +=
            u"Some files that the page shows could not be brought in. They are missing, do not lie in the page's "
            "folder, are no pictures, styles, scripts, films or sounds, or are too many:"_s +
            lines(page.left_out, kMostNames - links);
    if (!page.own_links.isEmpty())
        parts +=
            u"Links to other pages and files on this computer stay as they are and lead nowhere in the Website:"_s +
            lines(page.own_links, links);
    return parts.join(u"\n\n"_s);
}

/// Opens the page and makes its published page; a page that cannot be opened is taken away again.
bool open_and_save(Workbench& workbench, const QString& page) {
    const bool loaded = workbench.load(page);
    if (!loaded) {
        const auto removed = remove_file(QDir(workbench.website_folder()).filePath(editing_copy_name(page)));
        if (!removed) workbench.prompts().tell(save_fault_message(removed.error().number), MessageIcon::kCritical);
    }
    const bool saved = loaded && workbench.save();
    workbench.refresh_tree();
    return saved;
}

void bring_in_page(Workbench& workbench) {
    if (workbench.website().isEmpty() || !workbench.may_leave_page()) return;
    const auto file = workbench.prompts().choose_file(
        {u"Select Web Page"_s, start_folder(workbench), {u"Web pages (*.htm *.html)"_s, u"All Files (*)"_s}});
    if (!file) return;
    workbench.settings().setValue(kFolderSetting, QFileInfo(*file).absolutePath());
    if (const FaultNumber fault = fault_of_file(*file); fault != FaultNumber::kNone)
        return workbench.prompts().tell(load_fault_message(fault), MessageIcon::kCritical);
    const auto name = choose_name(workbench, *file);
    if (!name) return;

    const auto brought = [&] {
        const ProgressRun run(workbench.progress(), u"Wait"_s, u"in progress..."_s, 0);
        return bring_page_into_website({*file, workbench.website_folder(), *name});
    }();
    if (!brought) return workbench.prompts().tell(save_fault_message(brought.error().number), MessageIcon::kCritical);
    if (!open_and_save(workbench, brought->page)) return;
    if (const QString text = report(*brought); !text.isEmpty())
        workbench.prompts().tell(text, MessageIcon::kInformation);
}

}  // namespace

const QList<Command>& external_page_commands() {
    static const QList<Command> kCommands{
        {.name = u"mnu_pag_esterna"_s,
         .caption = u"Bring In a &Web Page..."_s,
         .menu = u"Page"_s,
         .help = help(),
         .icon = u"page-external"_s,
         .when = Enabled::kEditing,
         .run = bring_in_page},
    };
    return kCommands;
}

}  // namespace pondera
