#pragma once

#include <QList>
#include <QString>

#include <expected>

#include "base/file_error.h"
#include "base/steps.h"
#include "site/page_group.h"
#include "site/page_kind.h"

namespace pondera {

/// A page that is to be made from a card template of its Website.
struct NewPage {
    QString website_folder;
    PageKind kind = PageKind::kSubject;
    QString name;  ///< as typed and allowed, without ending
    int card = 2;
};

/// The message for a page that could not be created.
[[nodiscard]] QString page_creation_message(const FileError& error);

/// The message when a page file of that kind and name exists already (names that differ in case only count as the
/// same); empty when there is none.
[[nodiscard]] QString refusal_of_used_name(const QString& website_folder, PageKind kind, const QString& name);

/// Makes a page's editing copy from the card. Gives its published file name, or the message why not.
[[nodiscard]] std::expected<QString, QString> create_page(const NewPage& page);

/// Makes the page that follows `current` (published file name) in its group, from the Website's card 1, with an arrow
/// back; `current` gets the arrow to it, in its editing copy and its published page. Gives the new page's published
/// file name, or the message why not. Nothing is changed when the new page cannot be made.
[[nodiscard]] std::expected<QString, QString> add_following_page(const QString& website_folder, const QString& current);

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
/// every link to it in the Website. The new name has passed the name rules.
[[nodiscard]] PageOutcome rename_page(const QString& website_folder, const QString& page, const QString& new_name,
                                      const Steps& steps = {});

/// Deletes a page: its entries in the cascade menu's settings, its published page and its editing copy. The pages of
/// its group close up: the arrows of its neighbours lead past it and the following pages get the number one lower (the
/// first following page becomes the first when that was deleted), and links go with them. Other links to the page stay.
[[nodiscard]] PageOutcome delete_page(const QString& website_folder, const QString& page, const Steps& steps = {});

}  // namespace pondera
