#include "shell/publish/publish_commands.h"

namespace pondera {

using namespace Qt::StringLiterals;

const QList<Command>& publish_commands() {
    static const QList<Command> commands{
        {.name = u"mnu_pubblica"_s,
         .caption = u"&Publish on the Internet..."_s,
         .menu = u"Publish"_s,
         .help = {u"/_HELP/_6_File Send Web.htm"_s, u"Help - Publish on the Internet"_s},
         .icon = u"publish"_s,
         .keys = QKeySequence(u"Ctrl+Shift+P"_s),
         .run = mnu_pubblica},
        {.name = u"mnu_pubblica_dominio"_s,
         .caption = u"Publish on the &Hosted Domain..."_s,
         .menu = u"Publish"_s,
         .help = {u"/_HELP/_6_File Send Web.htm"_s, u"Help - Publish on the Internet"_s},
         .run = mnu_pubblica_dominio},
        {.name = u"mnu_pubblica_cartella"_s,
         .caption = u"Publish to a &Folder..."_s,
         .menu = u"Publish"_s,
         .help = {u"/_HELP/_6_File Publish Folder.htm"_s, u"Help - Publish to a Folder"_s},
         .run = mnu_pubblica_cartella},
        {.name = u"mnu_player"_s,
         .caption = u"Create &Multimedia for CD-ROM..."_s,
         .menu = u"Publish"_s,
         .help = {u"/_HELP/_6_File CD-Rom.htm"_s, u"Help - Create Multimedia for CD-ROM"_s},
         .icon = u"player"_s,
         .run = mnu_player},
        {.name = u"separator"_s, .menu = u"Publish"_s},
    };
    return commands;
}

}  // namespace pondera
