#pragma once

#include <QList>
#include <QString>

#include <expected>

#include "base/file_error.h"
#include "base/steps.h"
#include "site/page_group.h"
#include "site/page_kind.h"

namespace pondera {

class Roots;

/// A page that is to be made from a card template of its Website.
struct NewPage {
    QString website_folder;
    PageKind kind = PageKind::kSubject;
    QString name;  ///< as typed and allowed, without ending
    int card = 2;
};

/// The message for a page that could not be created.
[[nodiscard]] QString page_creation_message(const FileError& error);

/// The message that refuses to rename a page so when a page file of that kind and name exists already (names that
/// differ in case only count as the same); empty when there is none.
[[nodiscard]] QString refusal_of_used_name(const QString& website_folder, PageKind kind, const QString& name);

/// Makes a page's editing copy from the card, with the name as its title and heading; only a photo-show keeps the
/// card's show. Gives its published file name, or the message why not.
[[nodiscard]] std::expected<QString, QString> create_page(const NewPage& page);

/// A page that was added to a group.
struct AddedPage {
    QString page;     ///< its published file name
    QString message;  ///< to show besides, mostly empty
};

/// Makes the page that follows `current` (published file name) in its group, editing copy and published page, from the
/// Website's card 1, with an arrow back; `current` gets the arrow to it, in its editing copy and its published page.
/// Its title is that of the group with its number ("Tour - 2"), its heading the group's name. A following page that is
/// there already, because somebody deleted the arrow to it, stays as it is and gets its arrow again; the message says
/// so. Nothing is changed when it fails; the error is the message why.
[[nodiscard]] std::expected<AddedPage, QString> add_following_page(const Roots& roots, const QString& website_folder,
                                                                   const QString& current);

/// True when a page's text has an arrow to a next page.
[[nodiscard]] bool has_next_arrow(const QString& page_text);

/// What became of a page operation. Without rollback: what was done by then stays, and the message tells what was not.
struct PageOutcome {
    bool done = false;
    QString page;     ///< published file name of the page to show afterwards
    QString message;  ///< to show; empty when all went well

    /// The pages that a deletion gave another name, as their group closed up.
    QList<PageMove> moves{};
};

/// The name that a page is renamed by: its display name; for a page of a group, that of the group's first page.
[[nodiscard]] QString name_to_rename(const QString& page);

/// Renames a page, and the other pages of its group with it: files, titles that are its name, its stored fragment, and
/// every link to it in the Website. The new name has passed the name rules. The new files stand before the first link
/// is changed, and the old ones go last, so that a program that ends in the middle leaves no link that leads nowhere.
/// What fails is skipped and listed in the message. It is not stopped half-way, whatever `steps` answers.
[[nodiscard]] PageOutcome rename_page(const QString& website_folder, const QString& page, const QString& new_name,
                                      const Steps& steps = {});

/// Deletes a page: its entries in the cascade menu's settings, its published page, its editing copy and its stored
/// fragment. The pages of its group close up: the arrows of its neighbours lead past it and the following pages get the
/// number one lower (the first following page becomes the first when that was deleted); links and numbered titles go
/// with them. Other links to the page stay. It is not stopped half-way, whatever `steps` answers.
[[nodiscard]] PageOutcome delete_page(const QString& website_folder, const QString& page, const Steps& steps = {});

}  // namespace pondera
