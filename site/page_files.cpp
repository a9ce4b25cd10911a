#include "site/page_files.h"

#include <QDir>

#include <algorithm>

#include "base/character_references.h"
#include "base/files.h"
#include "base/tag_walk.h"
#include "base/text_file.h"
#include "site/page_group.h"
#include "site/page_name.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostNamed = 10;

QString group_name(const QString& page) {
    return strip_estensione(first_page_of_group(page));
}

int number_in_group(const QString& page) {
    const auto place = group_place(page);
    return place ? place->number + 1 : 1;
}

}  // namespace

QStringList group_of(const QString& website_folder, const QString& page) {
    QStringList pages = list_pages(website_folder);
    pages.removeIf([name = group_name(page)](const QString& other) { return group_name(other) != name; });
    std::ranges::stable_sort(pages, {}, number_in_group);
    return pages;
}

QString own_title(const QString& website_folder, const QString& page) {
    const QString first = first_page_of_group(page);
    const QString name = is_home_page(first) ? QDir(website_folder).dirName() : strip_tutto(first);
    return group_place(page) ? u"%1 - %2"_s.arg(name).arg(number_in_group(page)) : name;
}

QString with_changed_title(const QString& page_text, const std::function<QString(const QString& title)>& change) {
    TagWalk walk(page_text);
    while (const auto tag = walk.next()) {
        if (tag->name != u"TITLE") continue;
        const auto end_tag = walk.next();
        if (!end_tag) break;
        const QString written = page_text.sliced(tag->end, end_tag->begin - tag->end);
        const QString title = resolve_character_references(written).trimmed();
        const QString changed = change(title);
        if (changed == title) break;
        return QString(page_text).replace(tag->end, written.size(), changed.toHtmlEscaped());
    }
    return page_text;
}

QStringList files_of_page(const QString& website_folder, const QString& page) {
    QStringList files;
    for (const QString& name : {page, editing_copy_name(page)})
        if (const QString path = QDir(website_folder).filePath(name); QFileInfo::exists(path)) files += path;
    return files;
}

void change_page(const QString& website_folder, const QString& page,
                 const std::function<QString(const QString& text)>& change, QList<FileError>& failures) {
    for (const QString& path : files_of_page(website_folder, page)) {
        const auto file = read_text_file(path);
        if (!file) {
            failures += file.error();
            continue;
        }
        const QString text = change(file->text);
        if (text == file->text) continue;
        if (const auto written = replace_file(path, encode_text(text, file->encoding)); !written)
            failures += written.error();
    }
}

QStringList fragment_files(const QString& page) {
    QStringList files;
    for (const QString& name : {strip_tutto(page), strip_estensione(page)})
        files += u"media/img/External_HTML_"_s + name + u".txt"_s;
    files.removeDuplicates();
    return files;
}

void move_fragment(const QString& website_folder, const QString& from, const QString& to, QList<FileError>& failures) {
    const QDir folder(website_folder);
    const QStringList new_names = fragment_files(to);
    const QStringList old_names = fragment_files(from);
    for (qsizetype i = 0; i < std::min(old_names.size(), new_names.size()); ++i) {
        const QString old_path = folder.filePath(old_names[i]);
        if (!QFileInfo::exists(old_path)) continue;
        auto moved = copy_file(old_path, folder.filePath(new_names[i]), IfExists::kReplace);
        if (moved) moved = remove_file(old_path);
        if (!moved) failures += moved.error();
    }
}

QString left_undone_message(const QString& introduction, const QString& website_folder,
                            const QList<FileError>& failures) {
    QStringList files;
    for (const FileError& failure : failures)
        files += QDir::toNativeSeparators(QDir(website_folder).relativeFilePath(failure.path)) + u": "_s +
                 fault_words(failure);
    files.removeDuplicates();
    if (files.isEmpty()) return {};
    QStringList lines{introduction};
    lines += files.first(std::min(files.size(), kMostNamed));
    if (files.size() > kMostNamed) lines += u"and %1 more"_s.arg(files.size() - kMostNamed);
    return lines.join(u'\n');
}

}  // namespace pondera
