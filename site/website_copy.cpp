#include "site/website_copy.h"

#include <QDir>
#include <QRegularExpression>
#include <QUrl>

#include "base/roots.h"
#include "base/text_file.h"
#include "site/folder_files.h"
#include "site/interface_models.h"
#include "site/media_files.h"
#include "site/page_name.h"
#include "site/staged_website.h"
#include "site/website_creation.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QString encoded(const QString& name) {
    return QString::fromLatin1(QUrl::toPercentEncoding(name));
}

/// "../OLD/" becomes "../NEW/", with slashes either way; behind other path characters it means another place.
QString with_new_folder(const QString& text, const QString& from, const QString& to) {
    const QRegularExpression folder(
        uR"((?<![\w./\\-])(\.\.[/\\]+)%1(?=[/\\]))"_s.arg(QRegularExpression::escape(from)),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return QString(text).replace(folder, u"\\1"_s + to);
}

QString with_title(const QString& text, const QString& title, const QString& new_title) {
    const QRegularExpression element(uR"((<title>)\s*%1\s*(</title>))"_s.arg(QRegularExpression::escape(title)),
                                     QRegularExpression::CaseInsensitiveOption);
    return QString(text).replace(element, u"\\1"_s + new_title + u"\\2"_s);
}

bool is_template(const QString& file_name) {
    return file_name.endsWith(u"_card.htm"_s) || file_name == menu_template_name();
}

QString with_new_titles(const QString& file_name, const QString& text, const WebsiteCopy& copy) {
    if (is_template(file_name)) return text;
    if (!is_home_page(file_name)) return with_title(text, u"MODELLO"_s, copy.to);
    const QString suffix = u" - Home Page"_s;
    QString result = text;
    for (const QString& title : {u"MODELLO"_s, u"index"_s, copy.from + suffix})
        result = with_title(result, title, copy.to + suffix);
    return result;
}

/// Pages and templates, and what features write beside the pictures: texts that may name the Website's folder.
bool holds_addresses(const QString& file) {
    if (!file.contains(u'/')) return is_page_file(file);
    if (QFileInfo(file).path() != kPictureFolder) return false;
    return QStringList({u"js"_s, u"css"_s, u"txt"_s}).contains(QFileInfo(file).suffix(), Qt::CaseInsensitive);
}

FileResult<Work> correct_texts(const QString& folder, const QStringList& files, const WebsiteCopy& copy,
                               const Roots& roots, const Steps& steps) {
    for (qsizetype done = 0; done < files.size(); ++done) {
        const QString& file = files[done];
        if (!go_on(steps, static_cast<int>(done), static_cast<int>(files.size()))) return Work::kCancelled;
        const QString path = QDir(folder).filePath(file);
        const auto page = read_text_file(path);
        if (!page) return std::unexpected(page.error());
        const QString text = text_of_copy(file, page->text, copy, roots);
        if (text == page->text) continue;
        if (auto written = write_text_file(path, text, page->encoding); !written)
            return std::unexpected(written.error());
    }
    return Work::kDone;
}

}  // namespace

QString text_of_copy(const QString& file_name, const QString& text, const WebsiteCopy& copy, const Roots& roots) {
    QString result = with_new_folder(roots.replace_websites_root(text, u"../"_s), copy.from, copy.to);
    if (encoded(copy.from) != copy.from) result = with_new_folder(result, encoded(copy.from), encoded(copy.to));
    return is_page_file(file_name) ? with_new_titles(file_name, result, copy) : result;
}

FileResult<CopiedWebsite> copy_website(const Roots& roots, const WebsiteCopy& copy, const Steps& steps) {
    const QString source = roots.website(copy.from);
    if (!is_website(source)) return std::unexpected(FileError{FaultNumber::kPathNotFound, source, {}});
    if (!name_in_use(roots, copy.to).isEmpty())
        return std::unexpected(FileError{FaultNumber::kAlreadyExists, roots.website(copy.to), {}});
    auto found = files_of_website(source, Extent::kWithAllFolders);
    if (!found) return std::unexpected(found.error());
    for (const QString& record : {u"§_elenco.pnd"_s, u"§_elencotemp.pnd"_s}) found->files.removeAll(record);
    QStringList texts = found->files;
    texts.removeIf([](const QString& file) { return !holds_addresses(file); });

    auto staged = StagedWebsite::begin(roots);
    if (!staged) return std::unexpected(staged.error());
    const int copies = static_cast<int>(found->files.size());
    const int total = copies + static_cast<int>(texts.size());
    auto done = copy_files(source, staged->folder(), found->files,
                           [&](int copied, int) { return go_on(steps, copied, total); });
    if (done && *done == Work::kDone)
        done = correct_texts(staged->folder(), texts, copy, roots,
                             [&](int corrected, int) { return go_on(steps, copies + corrected, total); });
    if (!done) return std::unexpected(done.error());
    if (*done == Work::kCancelled) return CopiedWebsite{.cancelled = true};
    if (auto made = create_media_folders(staged->folder()); !made) return std::unexpected(made.error());
    if (auto placed = staged->take_place(roots.website(copy.to)); !placed) return std::unexpected(placed.error());
    return CopiedWebsite{.left_out = found->left_out};
}

}  // namespace pondera
