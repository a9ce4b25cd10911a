#include "elements/image/image_commands.h"

#include <QDir>
#include <QSettings>

#include "base/roots.h"
#include "elements/image/delete_file.h"
#include "elements/image/frm_inserisci_imm.h"
#include "elements/image/frm_ridim_imm.h"
#include "elements/image/insert_picture.h"
#include "elements/image_size.h"
#include "elements/selected_element.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kPictureFolderSetting = u"Picture Folder"_s;

/// Where the picture picker begins: where the last picture came from, at first the graphics library.
QString start_folder(Workbench& workbench) {
    for (const QString& folder :
         {workbench.settings().value(kPictureFolderSetting).toString(), workbench.roots().graphics_library()})
        if (!folder.isEmpty() && QDir(folder).exists()) return folder;
    return workbench.website_folder();
}

void choose_and_insert(Workbench& workbench, const PictureUse& use, PictureRole role) {
    Frm_Inserisci_Imm form(use, workbench.prompts(), [&](const Help& help) { workbench.show_help(help); });
    if (!workbench.prompts().run(form)) return;
    workbench.settings().setValue(kPictureFolderSetting, QFileInfo(form.picture().path).absolutePath());
    insert_picture(workbench, form.picture().path, role);
}

void insert_image(Workbench& workbench) {
    choose_and_insert(workbench,
                      {.caption = u"Insert Image"_s,
                       .picker_title = u"Select Image"_s,
                       .start_folder = start_folder(workbench),
                       .help = {u"/_HELP/_6_Ins Image.htm"_s, u"Help Insert Image"_s}},
                      PictureRole::kImage);
}

void insert_logo(Workbench& workbench) {
    choose_and_insert(workbench,
                      {.caption = u"Insert Logo"_s,
                       .picker_title = u"Select Logo"_s,
                       .start_folder = start_folder(workbench),
                       .help = {u"/_HELP/_6_Ins Mark.htm"_s, u"Help Insert Logo"_s}},
                      PictureRole::kLogo);
}

const Help& size_help() {
    static const Help kHelp{u"/_HELP/_6_Modif Imm DIM.htm"_s, u"Help - Image Size"_s};
    return kHelp;
}

/// Where the page's text tells the image from all others it is rewritten there, else in the selected element.
void set_size(EditingControl& editor, const SelectedElement& image, const QSize& size) {
    const ImageTraits traits{.position = image.box.topLeft(), .level = image.z_index, .name = image.name};
    if (const auto page = page_with_image_size(editor.text(), traits, size)) {
        editor.replace_text(*page);
        editor.select_element(image.name);
    } else {
        editor.replace_selected_element(image_with_size(image.outer_html, size));
    }
}

}  // namespace

/// Changes the size of the selected image.
void fDimm_Imm(Workbench& workbench) {
    const auto image = Agg_Coord(workbench.editor());
    if (!image || image->tag != u"IMG") return;
    Frm_Ridim_Imm form({.caption = u"Image Size"_s, .size = image->box.size(), .help = size_help()},
                       workbench.prompts(), [&](const Help& help) { workbench.show_help(help); });
    if (!workbench.prompts().run(form) || form.size() == image->box.size()) return;
    set_size(workbench.editor(), *image, form.size());
}

const QList<Command>& image_commands() {
    static const QList<Command> kCommands{
        {.name = u"mnu_ins_marchio"_s,
         .caption = u"&Image..."_s,
         .menu = u"Insert"_s,
         .help = {u"/_HELP/_6_Ins Image.htm"_s, u"Help - Select Image"_s},
         .icon = u"image"_s,
         .keys = QKeySequence(u"Ctrl+Shift+I"_s),
         .when = Enabled::kEditing,
         .run = insert_image},
        {.name = u"mnu_ins_marchio1"_s,
         .caption = u"&Logo..."_s,
         .menu = u"Insert"_s,
         .help = {u"/_HELP/_6_Ins Mark.htm"_s, u"Help - Logo Management"_s},
         .icon = u"logo"_s,
         .when = Enabled::kEditing,
         .run = insert_logo},
        {.name = u"mnu_dim_imm"_s,
         .caption = u"Image &Size..."_s,
         .menu = u"Format"_s,
         .help = size_help(),
         .when = Enabled::kElement,
         .run = fDimm_Imm},
        {.name = u"separator"_s, .menu = u"Edit"_s},
        {.name = u"mnu_cancella_file"_s,
         .caption = u"Delete &File..."_s,
         .menu = u"Edit"_s,
         .help = {u"/_HELP/_6_Mod 01.htm"_s, u"Help - Delete File"_s},
         .when = Enabled::kWebsite,
         .run = Cancella_File},
    };
    return kCommands;
}

}  // namespace pondera
