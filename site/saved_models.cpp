#include "site/saved_models.h"

#include <QDir>
#include <QRegularExpression>

#include <map>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"
#include "site/interface_models.h"
#include "site/media_files.h"
#include "site/name_rules.h"
#include "site/template_pictures.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostCards = 9;

/// Templates by the path that they get in the system folder.
using Templates = std::map<QString, TextFile>;

FileResult<Templates> read_templates(const Roots& roots, const SavedModel& model) {
    Templates templates;
    const auto read = [&](const QString& name, const QString& target) -> FileResult<void> {
        const QString source = QDir(model.website_folder).filePath(name);
        if (!QFileInfo::exists(source)) return {};
        auto file = read_text_file(source);
        if (!file) return std::unexpected(file.error());
        templates.emplace(target, *std::move(file));
        return {};
    };
    for (int card = 1; card <= kMostCards; ++card)
        if (auto done = read(card_file_name(card), interface_model_card(roots, model.name, card)); !done)
            return std::unexpected(done.error());
    if (templates.empty())
        return std::unexpected(
            FileError{FaultNumber::kPathNotFound, QDir(model.website_folder).filePath(card_file_name(1)), {}});
    if (auto done = read(menu_template_name(), interface_model_menu(roots, model.name)); !done)
        return std::unexpected(done.error());
    return templates;
}

/// Brings the pictures of a template into the system folder and gives the template with their names there.
FileResult<QString> bring_pictures(const QString& text, const QDir& website, const QString& system_folder) {
    QHash<QString, QString> new_names;
    for (const QString& name : pictures_named_in(text)) {
        const QString picture = website.filePath(kPictureFolder + u'/' + name);
        if (!QFileInfo(picture).isFile()) continue;
        const auto brought = bring_picture_into_website(picture, system_folder);
        if (!brought) return std::unexpected(brought.error());
        new_names.insert(name, QFileInfo(*brought).fileName());
    }
    return with_renamed_pictures(text, new_names);
}

/// The files of a model, cards first: a model without cards is no model.
QStringList files_of_model(const Roots& roots, const QString& model) {
    const QDir system(roots.system_folder());
    QStringList files;
    for (const QString& file : system.entryList({u"*_card.htm"_s}, QDir::Files | QDir::CaseSensitive))
        if (file.startsWith(model + u"_§_"_s)) files += system.filePath(file);
    files += interface_model_menu(roots, model);
    for (int card = 1; card <= kMostCards; ++card) files += interface_model_preview(roots, model, card);
    files.removeIf([](const QString& file) { return !QFileInfo::exists(file); });
    return files;
}

}  // namespace

std::optional<QString> refusal_of_model_name(const QString& name) {
    if (auto refusal = refusal_of_entry_name(name)) return refusal;
    if (!is_shipped_model(name)) return std::nullopt;
    return u"The model %1 belongs to the program and cannot be replaced. Choose another name."_s.arg(name);
}

QString model_in_use(const Roots& roots, const QString& name) {
    const QStringList models = list_interface_models(roots);
    if (models.contains(name)) return name;
    const qsizetype found =
        models.indexOf(QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(name)),
                                          QRegularExpression::CaseInsensitiveOption));
    return found < 0 ? QString() : models[found];
}

FileResult<void> save_interface_model(const Roots& roots, const SavedModel& model) {
    auto templates = read_templates(roots, model);
    if (!templates) return std::unexpected(templates.error());
    for (auto& [path, file] : *templates) {
        auto text = bring_pictures(file.text, QDir(model.website_folder), roots.system_folder());
        if (!text) return std::unexpected(text.error());
        file.text = *std::move(text);
    }
    const QStringList before = files_of_model(roots, model.name);
    for (const auto& [path, file] : *templates) {
        auto written = write_text_file(path, file.text, file.encoding);
        if (written) continue;
        if (before.isEmpty())
            for (const QString& file : files_of_model(roots, model.name)) QFile::remove(file);
        return written;
    }
    for (const QString& file : before)
        if (!templates->contains(file)) QFile::remove(file);
    return {};
}

FileResult<void> delete_interface_model(const Roots& roots, const QString& model) {
    FileResult<void> result;
    for (const QString& file : files_of_model(roots, model))
        if (auto removed = remove_file(file); !removed && result) result = std::move(removed);
    return result;
}

}  // namespace pondera
