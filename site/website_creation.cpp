#include "site/website_creation.h"

#include <QDir>

#include "base/files.h"
#include "base/roots.h"
#include "base/text.h"
#include "base/text_file.h"
#include "site/card_page.h"
#include "site/interface_models.h"
#include "site/page_name.h"
#include "site/template_pictures.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Copies the pictures that a template shows and the system folder has.
FileResult<void> copy_pictures_of(const QString& template_text, const Roots& roots, const QString& website_folder) {
    const QDir from(QDir(roots.system_folder()).filePath(u"media/img"_s));
    const QDir to(QDir(website_folder).filePath(u"media/img"_s));
    for (const QString& name : pictures_named_in(template_text)) {
        if (!QFileInfo(from.filePath(name)).isFile()) continue;
        if (auto copied = copy_file(from.filePath(name), to.filePath(name), IfExists::kReplace); !copied) return copied;
    }
    return {};
}

FileResult<void> copy_template(const QString& source, const QString& target_name, const Roots& roots,
                               const QString& website_folder) {
    const auto file = read_text_file(source);
    if (!file) return std::unexpected(file.error());
    if (auto copied = copy_file(source, QDir(website_folder).filePath(target_name), IfExists::kReplace); !copied)
        return copied;
    return copy_pictures_of(file->text, roots, website_folder);
}

FileResult<void> copy_model(const QString& model, const Roots& roots, const QString& website_folder) {
    for (const int card : interface_model_cards(roots, model)) {
        const QString source = interface_model_card(roots, model, card);
        if (auto copied = copy_template(source, card_file_name(card), roots, website_folder); !copied) return copied;
    }
    const QString menu = interface_model_menu(roots, model);
    if (!QFileInfo::exists(menu)) return {};
    return copy_template(menu, menu_template_name(), roots, website_folder);
}

FileResult<void> write_home_page(const NewWebsite& website, const QString& website_folder) {
    const QDir folder(website_folder);
    const auto card = read_text_file(folder.filePath(card_file_name(website.card)));
    if (!card) return std::unexpected(card.error());
    const QString text =
        page_from_card(card->text, {.title = website.name + u" - Home Page"_s, .heading = website.name});
    const QString published = without(text, u"§ç");
    if (auto written = write_text_file(folder.filePath(kHomePage), published, card->encoding); !written) return written;
    return write_text_file(folder.filePath(editing_copy_name(kHomePage)), text, card->encoding);
}

}  // namespace

FileResult<void> create_website_folder(const Roots& roots, const QString& name) {
    if (auto root = create_folders(roots.websites()); !root) return root;
    const QString path = roots.website(name);
    if (!name_in_use(roots, name).isEmpty()) return std::unexpected(FileError{FaultNumber::kAlreadyExists, path, {}});
    return create_folder(path);
}

void abandon_website_folder(const Roots& roots, const QString& name) {
    QDir(roots.websites()).rmdir(name);
}

FileResult<void> fill_website(const Roots& roots, const NewWebsite& website) {
    const QString folder = roots.website(website.name);
    if (auto made = create_media_folders(folder); !made) return made;
    if (auto copied = copy_model(website.model, roots, folder); !copied) return copied;
    return write_home_page(website, folder);
}

FileResult<void> create_media_folders(const QString& website_folder) {
    for (const QString& name : {u"media/img"_s, u"media/video"_s, u"media/audio"_s})
        if (auto made = create_folders(QDir(website_folder).filePath(name)); !made) return made;
    return {};
}

QString website_creation_message(const FileError& error) {
    switch (error.number) {
        case FaultNumber::kAlreadyExists:
            return u"Name of the Website already used!"_s;
        case FaultNumber::kPermissionDenied:
            return u"Read-only disk. Impossible to create the Website!"_s;
        default:
            return u"Error occurred while creating: code:"_s + number_text(error.number);
    }
}

}  // namespace pondera
