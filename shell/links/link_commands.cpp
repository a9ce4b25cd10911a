#include "shell/links/link_commands.h"

#include "elements/anchor_name.h"
#include "shell/links/broken_links_command.h"
#include "shell/links/frm_ancora.h"
#include "shell/links/frm_collegamento.h"
#include "site/media_files.h"
#include "site/page_references.h"
#include "workbench/editing_control.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QString copy_fault_message(const FileError& error) {
    return u"The file could not be copied into the Website. "_s + fault_sentence(error);
}

/// True when no words and no picture are selected, such as the end of a paragraph alone.
bool is_empty(const Selection& selection) {
    return selection.type == SelectionType::kNone ||
           (selection.type == SelectionType::kText && selection.text.trimmed().isEmpty() &&
            !selection.html.contains(u"<IMG"_s, Qt::CaseInsensitive));
}

/// True when the selection can become a link, or holds one that can be changed; else the person is told why not.
bool may_link(Workbench& workbench, const Selection& selection) {
    if (selection.link_href.contains(u"esempio("_s) || selection.html.contains(u"esempio("_s) ||
        (selection.element && selection.element->outer_html.contains(u"esempio("_s))) {
        workbench.prompts().tell(
            u"It is not possible to change the link already existing.\nDelete the link to popup and create a new one."_s);
        return false;
    }
    if (is_empty(selection) && selection.link_href.isEmpty()) {
        workbench.prompts().tell(
            u"Select the words or the picture that the link is to stand on, or click into the link that you want to "
            "change."_s,
            MessageIcon::kInformation);
        return false;
    }
    return true;
}

void tell_that_nothing_is_linked(Workbench& workbench) {
    workbench.prompts().tell(
        u"There is nothing in the selection that a link can stand on: select words or a picture."_s);
}

void link_to_address(Workbench& workbench, const QString& address) {
    EditingControl& editor = workbench.editor();
    editor.execute(EditCommand::kHyperlink, address);
    if (editor.selection().link_href != address) tell_that_nothing_is_linked(workbench);
}

void link_to_file(Workbench& workbench, const QString& file) {
    const auto in_website = bring_file_into_website(file, workbench.website_folder(), {});
    if (!in_website) return workbench.prompts().tell(copy_fault_message(in_website.error()), MessageIcon::kCritical);
    workbench.refresh_tree();
    link_to_address(workbench, address_of(*in_website));
}

void link_to_place(Workbench& workbench, int index) {
    EditingControl& editor = workbench.editor();
    const QList<PagePlace> places = editor.places();
    QStringList names;
    for (const PagePlace& place : places) names += place.name;
    if (!editor.link_to_place(index, free_anchor_name(places.value(index).text, names)))
        tell_that_nothing_is_linked(workbench);
}

bool is_editing(const Workbench& workbench) {
    return !workbench.page().isEmpty() && !workbench.browsing();
}

/// Makes the selection a link, or changes the link in which the caret stands.
void Rendi_inter(Workbench& workbench) {
    EditingControl& editor = workbench.editor();
    const Selection selection = editor.selection();
    if (!may_link(workbench, selection)) return;
    editor.keep_place();
    frm_collegamento form(workbench, selection);
    const bool accepted = workbench.prompts().run(form);
    editor.restore_place();
    if (!accepted) return;
    const LinkChoice choice = form.choice();
    switch (choice.kind) {
        case LinkChoice::Kind::kNone:
            editor.execute(EditCommand::kUnlink);
            break;
        case LinkChoice::Kind::kAddress:
            link_to_address(workbench, choice.value);
            break;
        case LinkChoice::Kind::kFile:
            link_to_file(workbench, choice.value);
            break;
        case LinkChoice::Kind::kPlace:
            link_to_place(workbench, choice.place);
            break;
    }
}

void name_place(Workbench& workbench) {
    EditingControl& editor = workbench.editor();
    const auto ask_for_place = [&workbench] {
        workbench.prompts().tell(u"Click into the text where the anchor is to stand, or select words there."_s,
                                 MessageIcon::kInformation);
    };
    if (editor.selection().type == SelectionType::kControl) return ask_for_place();
    editor.keep_place();
    frm_ancora form(workbench);
    const bool accepted = workbench.prompts().run(form);
    editor.restore_place();
    if (accepted && !editor.set_place_name(form.removes() ? QString() : form.name().trimmed())) ask_for_place();
}

}  // namespace

const Help& link_help() {
    static const Help kHelp{u"/_HELP/_6_Link Crea.htm"_s, u"Help - Link"_s};
    return kHelp;
}

void link_selection_to(Workbench& workbench, const QString& page) {
    if (is_editing(workbench) && may_link(workbench, workbench.editor().selection()))
        link_to_address(workbench, address_of(page));
}

const QList<Command>& link_commands() {
    static const QList<Command> kCommands{
        {.name = u"Rendi_inter"_s,
         .caption = u"&Link..."_s,
         .menu = u"Insert"_s,
         .help = link_help(),
         .icon = u"link"_s,
         .keys = QKeySequence(u"Ctrl+K"_s),
         .when = Enabled::kEditing,
         .run = Rendi_inter},
        {.name = u"mnu_unlink"_s,
         .caption = u"&Remove Link"_s,
         .menu = u"Insert"_s,
         .help = link_help(),
         .keys = QKeySequence(u"Ctrl+Shift+K"_s),
         .when = Enabled::kEditorStatus,
         .editor_command = EditCommand::kUnlink,
         .run = [](Workbench& workbench) { workbench.editor().execute(EditCommand::kUnlink); }},
        {.name = u"mnu_ins_ancora"_s,
         .caption = u"&Anchor..."_s,
         .menu = u"Insert"_s,
         .help = anchor_help(),
         .icon = u"anchor"_s,
         .when = Enabled::kEditing,
         .run = name_place},
        {.name = u"mnu_link_rotti"_s,
         .caption = u"&Broken Links..."_s,
         .menu = u"Page"_s,
         .help = broken_links_help(),
         .run = show_broken_links},
    };
    return kCommands;
}

}  // namespace pondera
