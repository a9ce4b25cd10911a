#include <QDir>

#include <algorithm>

#include "base/files.h"
#include "base/text_file.h"
#include "site/group_arrows.h"
#include "site/link_correction.h"
#include "site/page_files.h"
#include "site/page_group.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "site/page_references.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// Empties the entries of the cascade menu's settings that hold a page's name.
FileResult<void> remove_menu_entries(const QDir& website, const QString& page) {
    const QString path = website.filePath(u"media/img/reference.js"_s);
    if (!QFileInfo::exists(path)) return {};
    const auto file = read_text_file(path);
    if (!file) return std::unexpected(file.error());
    QString text = file->text;
    const QList<PageReference> references = script_references(text);
    std::for_each(references.rbegin(), references.rend(), [&](const PageReference& reference) {
        const AddressTarget target = resolve_address(reference.address, website.dirName());
        if (target.file.compare(page, Qt::CaseInsensitive) == 0)
            text.remove(reference.begin, reference.end - reference.begin);
    });
    if (text == file->text) return {};
    return replace_file(path, encode_text(text, file->encoding));
}

FileResult<void> remove_files(const QStringList& paths) {
    for (const QString& path : paths)
        if (auto removed = remove_file(path); !removed) return removed;
    return {};
}

/// The pages around one that is deleted, as far as there are any.
struct Neighbours {
    QString previous;
    QString next;
    bool next_becomes_first = false;
};

Neighbours neighbours_of(const QStringList& group, const QString& page) {
    const qsizetype at = group.indexOf(page);
    return {.previous = group.value(at - 1), .next = group.value(at + 1), .next_becomes_first = !group_place(page)};
}

/// Lets an arrow of a page lead to `target`, or takes it away when that is empty. A page without the arrow stays so.
void lead_arrow(const QString& website_folder, const QString& page, GroupArrow arrow, const QString& target,
                QList<FileError>& failures) {
    if (page.isEmpty()) return;
    const auto led = [&](const QString& text) {
        if (target.isEmpty()) return without_arrow(text, arrow);
        return has_arrow(text, arrow) ? with_arrow(text, arrow, target) : text;
    };
    change_page(website_folder, page, led, failures);
}

/// Moves the files of a page to a name that is free.
FileResult<void> move_page(const QString& website_folder, const PageMove& move) {
    const QDir folder(website_folder);
    for (const auto& [from, to] :
         {std::pair{move.from, move.to}, std::pair{editing_copy_name(move.from), editing_copy_name(move.to)}}) {
        if (!folder.exists(from)) continue;
        if (auto copied = copy_file(folder.filePath(from), folder.filePath(to), IfExists::kFail); !copied)
            return copied;
        if (auto removed = remove_file(folder.filePath(from)); !removed) return removed;
    }
    return {};
}

/// Moves the pages that follow a deleted one up by one place.
RenumberedPages close_gap(const QString& website_folder, const QString& deleted, const Neighbours& neighbours) {
    if (neighbours.next.isEmpty()) return {};
    if (!neighbours.next_becomes_first) return Rinominazione_File_Succ(website_folder, deleted, Renumbering::kCloseGap);
    const PageMove first{neighbours.next, deleted};
    if (const auto moved = move_page(website_folder, first); !moved)
        return {.moves = {}, .error = u"Renaming subsequent files Error: 'copy'"_s};
    RenumberedPages pages = Rinominazione_File_Succ(website_folder, neighbours.next, Renumbering::kCloseGap);
    pages.moves.prepend(first);
    return pages;
}

/// Lets titles and stored fragments of pages follow their moves.
void follow_moves(const QString& website_folder, const QList<PageMove>& moves, QList<FileError>& failures) {
    for (const PageMove& move : moves) {
        const QString old_title = own_title(website_folder, move.from);
        const QString new_title = own_title(website_folder, move.to);
        const auto renumber = [&](const QString& title) { return title == old_title ? new_title : title; };
        change_page(
            website_folder, move.to, [&](const QString& text) { return with_changed_title(text, renumber); }, failures);
        move_fragment(website_folder, move.from, move.to, failures);
    }
}

}  // namespace

PageOutcome delete_page(const QString& website_folder, const QString& page, const Steps& steps) {
    if (is_home_page(page)) return {false, page, u"You cannot delete the file index.htm"_s};
    const QDir folder(website_folder);
    QList<FileError> failures;
    if (const auto removed = remove_menu_entries(folder, page); !removed) failures += removed.error();
    const QStringList files = files_of_page(website_folder, page);
    if (files.isEmpty()) return {false, page, u"Error occurred while retrieving file to delete!"_s};
    const Neighbours neighbours = neighbours_of(group_of(website_folder, page), page);
    if (!remove_files(files)) return {false, page, u"Error occurred: page could not be deleted."_s};
    for (const QString& fragment : fragment_files(page))
        if (folder.exists(fragment) && !remove_file(folder.filePath(fragment)))
            failures += FileError{FaultNumber::kPermissionDenied, folder.filePath(fragment), {}};

    lead_arrow(website_folder, neighbours.previous, GroupArrow::kNext, neighbours.next, failures);
    lead_arrow(website_folder, neighbours.next, GroupArrow::kPrevious, neighbours.previous, failures);
    const RenumberedPages renumbered = close_gap(website_folder, page, neighbours);
    failures += Correzione_Links(website_folder, renumbered.moves, steps).failures;
    follow_moves(website_folder, renumbered.moves, failures);

    const QString undone =
        left_undone_message(u"The page is deleted, but these files could not be changed:"_s, website_folder, failures);
    const bool first_follows = neighbours.next_becomes_first && !renumbered.moves.isEmpty();
    const QString shown = !neighbours.previous.isEmpty() ? neighbours.previous : first_follows ? page : kHomePage;
    return {true, shown, QStringList({renumbered.error, undone}).join(u'\n').trimmed(), renumbered.moves};
}

}  // namespace pondera
