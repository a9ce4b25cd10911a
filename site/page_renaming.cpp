#include <QDir>

#include <algorithm>
#include <filesystem>
#include <tuple>

#include "base/files.h"
#include "site/link_correction.h"
#include "site/page_files.h"
#include "site/page_group.h"
#include "site/page_name.h"
#include "site/page_operations.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The moves that give a page and its group another name. The kind code in front of the old name stays.
QList<PageMove> moves_to_name(const QString& website_folder, const QString& page, const QString& new_name) {
    const QString old_base = strip_estensione(first_page_of_group(page));
    const QString new_base = old_base.chopped(name_to_rename(page).size()) + new_name;
    QList<PageMove> moves;
    for (const QString& member : group_of(website_folder, page))
        moves += PageMove{member, new_base + member.sliced(old_base.size())};
    return moves;
}

/// True when a file that is not the page itself has the name that the page is to get, in any case.
bool is_taken(const QString& website_folder, const PageMove& move) {
    const QStringList files = QDir(website_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    return std::ranges::any_of(files, [&](const QString& file) {
        const QString name = published_name(file);
        return name != move.from && name.compare(move.to, Qt::CaseInsensitive) == 0;
    });
}

/// True when only the case changes; on some file systems the new name is then a name of the old file.
bool changes_case_only(const PageMove& move) {
    return move.from.compare(move.to, Qt::CaseInsensitive) == 0;
}

FileResult<void> change_case(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    if (error) return std::unexpected(file_error_of(error, from));
    return {};
}

/// Gives a page's files their new names; where that takes copies the old files stay for now. When one fails, the page
/// keeps its old names.
FileResult<void> make_new_files(const QDir& folder, const PageMove& move) {
    const auto make = changes_case_only(move) ? change_case : [](const QString& from, const QString& to) {
        return copy_file(from, to, IfExists::kFail);
    };
    QString made;
    for (const auto& [from, to] :
         {std::pair{move.from, move.to}, std::pair{editing_copy_name(move.from), editing_copy_name(move.to)}}) {
        if (!folder.exists(from)) continue;
        const auto result = make(folder.filePath(from), folder.filePath(to));
        if (!result && !made.isEmpty() && changes_case_only(move))
            std::ignore = change_case(folder.filePath(made), folder.filePath(move.from));
        else if (!result && !made.isEmpty())
            std::ignore = remove_file(folder.filePath(made));
        if (!result) return result;
        made = to;
    }
    return {};
}

/// A title that is the page's name, alone or with something behind it ("Tour - 2"), goes with the name.
QString renamed_title(const QString& title, const QString& old_name, const QString& new_name) {
    const bool named = title == old_name || title.startsWith(old_name + u" - "_s);
    return named ? new_name + title.sliced(old_name.size()) : title;
}

}  // namespace

QString name_to_rename(const QString& page) {
    return strip_tutto(first_page_of_group(published_name(page)));
}

PageOutcome rename_page(const QString& website_folder, const QString& page, const QString& new_name,
                        const Steps& steps) {
    if (is_home_page(page)) return {false, page, u"The home page cannot be renamed."_s};
    const QDir folder(website_folder);
    const QList<PageMove> moves = moves_to_name(website_folder, page, new_name);
    const auto own = std::ranges::find(moves, page, &PageMove::from);
    if (own == moves.end()) return {false, page, u"The page to rename was not found."_s};
    if (own->from == own->to) return {true, page, {}};
    if (std::ranges::any_of(moves, [&](const PageMove& move) { return is_taken(website_folder, move); }))
        return {false, page, u"Page name already in use. Change Page name."_s};

    QList<FileError> failures;
    QList<PageMove> made;
    for (const PageMove& move : moves) {
        const auto result = make_new_files(folder, move);
        if (result)
            made += move;
        else
            failures += result.error();
    }
    failures += Correzione_Links(website_folder, made, steps).failures;

    const QString old_name = name_to_rename(page);
    for (const PageMove& move : made) {
        const auto rename = [&](const QString& title) { return renamed_title(title, old_name, new_name); };
        change_page(
            website_folder, move.to, [&](const QString& text) { return with_changed_title(text, rename); }, failures);
        move_fragment(website_folder, move.from, move.to, failures);
        if (changes_case_only(move)) continue;
        for (const QString& old_file : files_of_page(website_folder, move.from)) {
            failures.removeIf(
                [&](const FileError& failure) { return QDir::fromNativeSeparators(failure.path) == old_file; });
            if (const auto removed = remove_file(old_file); !removed) failures += removed.error();
        }
    }
    const bool done = made.contains(*own);
    const QString introduction = done ? u"The page has its new name, but these files could not be changed:"_s
                                      : u"The page could not be renamed:"_s;
    return {done, done ? own->to : page, left_undone_message(introduction, website_folder, failures)};
}

}  // namespace pondera
