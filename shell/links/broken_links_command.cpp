#include "shell/links/broken_links_command.h"

#include "shell/links/frm_link_rotti.h"
#include "site/broken_links.h"
#include "site/page_name.h"
#include "workbench/editing_control.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// What a check finds, nothing when the person stopped it.
std::optional<LinkCheck> check_with_progress(Workbench& workbench) {
    ProgressRun run(workbench.progress(), u"Check of links"_s, u"in progress..."_s, 0, Cancelling::kYes);
    LinkCheck check = broken_links(workbench.website_folder(), run.steps());
    return check.whole ? std::optional(std::move(check)) : std::nullopt;
}

void tell(Workbench& workbench, const QString& text) {
    workbench.prompts().tell(text, MessageIcon::kInformation);
}

void go_there(Workbench& workbench, const BrokenLink& link) {
    if (!is_page_file(link.file)) {
        return tell(
            workbench,
            u"The address \"%1\" stands in the file %2, which the menu is made of. Change it in the menu."_s.arg(
                link.address, link.file));
    }
    workbench.set_browsing(false);
    if (workbench.browsing() || (workbench.page() != link.file && !workbench.load(link.file))) return;
    switch (workbench.editor().show_address(link.address, link.number)) {
        case AddressShown::kShown:
            return;
        case AddressShown::kHidden:
            return tell(workbench,
                        u"The address \"%1\" stands where nothing can be selected: in the head of this page, in a "
                        "script or style, in something that is not shown, or as the background of the page."_s.arg(
                            link.address));
        case AddressShown::kMissing:
            return tell(workbench, u"The address \"%1\" is no longer on this page."_s.arg(link.address));
    }
}

}  // namespace

const Help& broken_links_help() {
    static const Help kHelp{u"/_HELP/_6_Link Broken.htm"_s, u"Help - Broken Links"_s};
    return kHelp;
}

void show_broken_links(Workbench& workbench) {
    if (!workbench.may_leave_page()) return;
    const auto check = check_with_progress(workbench);
    if (!check) return;
    if (check->broken.isEmpty()) return tell(workbench, no_broken_links(*check));
    frm_link_rotti form(workbench, *check, [&workbench] { return check_with_progress(workbench); });
    if (workbench.prompts().run(form)) go_there(workbench, form.choice());
}

}  // namespace pondera
