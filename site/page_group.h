#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace pondera {

/// A page's place in a group of pages that visitors leaf through: the first page is "_4_Tour.htm", those that follow it
/// are "_4_Tour_page1_.htm", "_4_Tour_page2_.htm" and so on. Only the number in the name tells the order.
struct GroupPlace {
    QString before;  ///< the name up to the number: "_4_Tour_page"
    int number = 0;
    QString after;  ///< the name from the number's end: "_.htm"
};

/// The place of a following page, by the number after the last "_P" (any case) of its published file name; nullopt for
/// any other page.
[[nodiscard]] std::optional<GroupPlace> group_place(const QString& published);

/// The name of the page that follows a page directly; the page after a group's first page has the number 1.
[[nodiscard]] QString following_page_name(const QString& published);

/// The published name of the first page of a page's group; the page itself when it follows none.
[[nodiscard]] QString first_page_of_group(const QString& published);

/// A page that got another name.
struct PageMove {
    QString from;  ///< published file names
    QString to;

    friend bool operator==(const PageMove&, const PageMove&) = default;
};

enum class Renumbering {
    kMakeRoom,  ///< each following page gets the number one higher, to insert a page after the current one
    kCloseGap,  ///< each gets the number one lower, after the current page was deleted
};

/// What a renumbering did. After an error, what had been moved by then stays moved.
struct RenumberedPages {
    QList<PageMove> moves;  ///< for the links to follow
    QString error;          ///< the message to show, empty when all went well
};

/// Renumbers the pages that follow `current` (published page or editing copy) in its group. Published pages and editing
/// copies are moved, each by a copy to the new name and the deletion of the old one, in an order in which nothing is
/// overwritten.
[[nodiscard]] RenumberedPages Rinominazione_File_Succ(const QString& website_folder, const QString& current,
                                                      Renumbering renumbering);

}  // namespace pondera
