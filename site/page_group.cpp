#include "site/page_group.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

#include "base/files.h"
#include "site/page_name.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// The pages that follow `current`, those first whose new names must be free first.
QList<GroupPlace> following_pages(const QString& website_folder, const GroupPlace& current, Renumbering renumbering) {
    QList<GroupPlace> following;
    const qsizetype base = current.before.size() - u"_page"_s.size();
    for (const QString& page : list_pages(website_folder)) {
        const auto place = group_place(page);
        if (place && place->number > current.number && place->before.size() == current.before.size() &&
            place->before.first(base) == current.before.first(base))
            following += *place;
    }
    std::ranges::stable_sort(following, [&](const GroupPlace& a, const GroupPlace& b) {
        return renumbering == Renumbering::kMakeRoom ? a.number > b.number : a.number < b.number;
    });
    return following;
}

QString name_of(const GroupPlace& place, int number) {
    return place.before + QString::number(number) + place.after;
}

/// The message of a move that failed, empty for one that was made.
QString move_file(const QString& from, const QString& to) {
    if (!copy_file(from, to, IfExists::kFail)) return u"Renaming subsequent files Error: 'copy'"_s;
    if (!remove_file(from)) return u"Renaming subsequent files Error: 'delete'"_s;
    return {};
}

}  // namespace

std::optional<GroupPlace> group_place(const QString& published) {
    static const QRegularExpression following(uR"(^(.+_page)([1-9]\d{0,5})(_\.html?)$)"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    const auto match = following.match(published);
    if (!match.hasMatch()) return std::nullopt;
    return GroupPlace{match.captured(1), match.captured(2).toInt(), match.captured(3)};
}

QString following_page_name(const QString& published) {
    if (const auto place = group_place(published)) return name_of(*place, place->number + 1);
    return strip_estensione(published) + u"_page1_.htm"_s;
}

QString first_page_of_group(const QString& published) {
    const auto place = group_place(published);
    return place ? place->before.chopped(u"_page"_s.size()) + u".htm"_s : published;
}

/// Renumbers the following pages.
RenumberedPages Rinominazione_File_Succ(const QString& website_folder, const QString& current,
                                        Renumbering renumbering) {
    const auto place = group_place(published_name(current));
    if (!place) return {.moves = {}, .error = u"Unforeseen mistake '_P' not noticed the name of the following page"_s};
    const int step = renumbering == Renumbering::kMakeRoom ? 1 : -1;
    const QDir folder(website_folder);
    RenumberedPages pages;
    for (const GroupPlace& page : following_pages(website_folder, *place, renumbering)) {
        const PageMove move{name_of(page, page.number), name_of(page, page.number + step)};
        for (const auto& [from, to] :
             {std::pair{move.from, move.to}, std::pair{editing_copy_name(move.from), editing_copy_name(move.to)}}) {
            if (!folder.exists(from)) continue;
            pages.error = move_file(folder.filePath(from), folder.filePath(to));
            if (!pages.error.isEmpty()) return pages;
            if (!pages.moves.endsWith(move)) pages.moves += move;
        }
    }
    return pages;
}

}  // namespace pondera
