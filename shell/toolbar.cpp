#include "shell/toolbar.h"

#include <QAction>
#include <QDir>
#include <QFile>

#include "shell/command_actions.h"

namespace pondera {

using namespace Qt::StringLiterals;

const QList<ToolbarKey>& toolbar_keys() {
    static const QList<ToolbarKey> kKeys{
        {u"salva"_s, u"Save"_s, u"save"_s, u"mnu_salva"_s},
        {u"pubblica"_s, u"Publish"_s, u"publish"_s, u"mnu_pubblica"_s},
        {u"player"_s, u"CD-ROM"_s, u"player"_s, u"mnu_player"_s},
        {},
        {u"aggiungi"_s, u"Add Page"_s, u"add-page"_s, u"Add_Pag"_s},
        {u"rinomina"_s, u"Rename Page"_s, u"rename"_s, u"mnu_rinomina_pagina"_s},
        {},
        {u"Bold"_s, u"Bold"_s, u"bold"_s, u"mnu_bold"_s},
        {u"Italic"_s, u"Italic"_s, u"italic"_s, u"mnu_italic"_s},
        {u"Underline"_s, u"Underline"_s, u"underline"_s, u"mnu_underline"_s},
        {u"Color"_s, u"Text Color"_s, u"color"_s, u"Col_For"_s},
        {},
        {u"LeftJustify"_s, u"Align Left"_s, u"left"_s, u"mnu_left"_s},
        {u"Center"_s, u"Center"_s, u"center"_s, u"mnu_center"_s},
        {u"RightJustify"_s, u"Align Right"_s, u"right"_s, u"mnu_right"_s},
        {},
        {u"Numbers"_s, u"Numbered List"_s, u"numbers"_s, u"mnu_numbers"_s},
        {u"Bullets"_s, u"Bulleted List"_s, u"bullets"_s, u"mnu_bullets"_s},
        {u"Outdent"_s, u"Outdent"_s, u"outdent"_s, u"mnu_outdent"_s},
        {u"Indent"_s, u"Indent"_s, u"indent"_s, u"mnu_indent"_s},
        {},
        {u"immagine"_s, u"Image"_s, u"image"_s, u"mnu_ins_marchio"_s},
        {u"collegamento"_s, u"Link"_s, u"link"_s, u"Rendi_inter"_s},
        {u"slide"_s, u"Photo-Show"_s, u"slide"_s, u"Ins_SlideShow"_s},
        {u"testo"_s, u"Interactive Text Area"_s, u"text-area"_s, u"Ins_Area"_s},
        {u"email"_s, u"E-Mail Address"_s, u"email"_s, u"mnu_indirizzo_email"_s},
        {u"motore"_s, u"Search Engine"_s, u"search"_s, u"mnu_motore_ricerca"_s},
        {u"menu"_s, u"Cascade Menu"_s, u"menu"_s, u"mnu_crea_menu"_s},
        {},
        {u"sopra"_s, u"&Bring Up"_s, u"raise"_s, u"D2DSub0"_s},
        {u"sotto"_s, u"&Bring Down"_s, u"lower"_s, u"D2DSub1"_s},
    };
    return kKeys;
}

QString command_of_key(const ToolbarKey& key, const QString& website_folder) {
    if (key.key != "menu"_L1 || website_folder.isEmpty()) return key.command;
    const QDir pictures(website_folder + "/media/img"_L1);
    const bool generated = pictures.exists(u"menu_items.js"_s) && pictures.exists(u"pnd.css"_s);
    return generated ? u"mnu_management_menu"_s : key.command;
}

Toolbar::Toolbar(const CommandActions& actions, std::function<QString()> website_folder, QWidget* parent)
    : QToolBar(parent), actions_(actions), website_folder_(std::move(website_folder)) {
    setObjectName("Toolbar1"_L1);
    setWindowTitle(u"Toolbar"_s);
    setIconSize({20, 20});
    for (const ToolbarKey& key : toolbar_keys()) {
        if (key.key.isEmpty()) {
            addSeparator();
            continue;
        }
        auto* action = new QAction(icon_named(key.icon), key.caption, this);
        action->setObjectName(key.key);
        connect(action, &QAction::triggered, this, [this, &key] {
            if (QAction* command = actions_.action(command_of_key(key, website_folder_()))) command->trigger();
            refresh();
        });
        addAction(action);
        if (QAction* command = actions_.action(key.command)) {
            action->setCheckable(command->isCheckable());
            const QString shortcut = command->shortcut().toString(QKeySequence::NativeText);
            const QString caption = plain_caption(key.caption);
            action->setToolTip(shortcut.isEmpty() ? caption : u"%1 (%2)"_s.arg(caption, shortcut));
        }
    }
    refresh();
}

void Toolbar::refresh() {
    for (const ToolbarKey& key : toolbar_keys()) {
        auto* action = findChild<QAction*>(key.key, Qt::FindDirectChildrenOnly);
        if (key.key.isEmpty() || action == nullptr) continue;
        const QAction* command = actions_.action(command_of_key(key, website_folder_()));
        action->setEnabled(command != nullptr && command->isEnabled());
        action->setChecked(command != nullptr && command->isChecked());
    }
}

}  // namespace pondera
