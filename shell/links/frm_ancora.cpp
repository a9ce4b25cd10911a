#include "shell/links/frm_ancora.h"

#include <QtWidgets>

#include "elements/anchor_name.h"
#include "workbench/editing_control.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The names of the page's places, but not that of the place to be named.
QStringList other_names(EditingControl& editor, const QString& name_now) {
    QStringList names;
    for (const PagePlace& place : editor.places())
        if (!place.name.isEmpty() && place.name != name_now) names += place.name;
    return names;
}

QString offered_name(EditingControl& editor, const QString& name_now) {
    if (!name_now.isEmpty()) return name_now;
    const QString words = editor.selection().text;
    return words.isEmpty() ? QString() : free_anchor_name(words, other_names(editor, {}));
}

}  // namespace

const Help& anchor_help() {
    static const Help kHelp{u"/_HELP/_6_Link Anchor.htm"_s, u"Help - Anchor"_s};
    return kHelp;
}

frm_ancora::frm_ancora(Workbench& workbench) : frm_ancora(workbench, workbench.editor().place_name()) {
}

frm_ancora::frm_ancora(Workbench& workbench, const QString& name_now)
    : NameForm(
          workbench,
          {.form = u"frm_ancora"_s,
           .title = u"Anchor"_s,
           .prompt = u"&Name of this place of the page"_s,
           .note = u"Letters and digits without blanks, for example Prices or Opening-hours. A little flag marks the "
                   "place while you edit; visitors do not see it."_s,
           .help = anchor_help(),
           .name = offered_name(workbench.editor(), name_now)},
          [&workbench, name_now](const QString& name) {
              return refusal_of_anchor_name(name.trimmed(), other_names(workbench.editor(), name_now));
          }) {
    if (name_now.isEmpty()) return;
    auto* remove = findChild<QDialogButtonBox*>()->addButton(u"&Remove Anchor"_s, QDialogButtonBox::ResetRole);
    remove->setObjectName(u"remove_anchor"_s);
    remove->setAutoDefault(false);
    connect(remove, &QPushButton::clicked, this, [this] {
        removes_ = true;
        done(Accepted);
    });
}

}  // namespace pondera
