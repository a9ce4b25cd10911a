#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

#include "base/file_error.h"

namespace pondera {

/// The pages of a page's group that the Website has: the first page, then the following ones by their numbers. A page
/// that is in no group is alone in the list.
[[nodiscard]] QStringList group_of(const QString& website_folder, const QString& page);

/// The title of a page that was never titled by hand: its display name; in a group that of the first page, with the
/// page's number in the group ("Tour - 2" is the title of "_4_Tour_page1_.htm"). The home page goes by its Website's
/// name.
[[nodiscard]] QString own_title(const QString& website_folder, const QString& page);

/// A page's text with its title changed; `change` gets and gives plain text.
[[nodiscard]] QString with_changed_title(const QString& page_text,
                                         const std::function<QString(const QString& title)>& change);

/// The files that a page has: its published page and its editing copy, as far as they are there.
[[nodiscard]] QStringList files_of_page(const QString& website_folder, const QString& page);

/// Changes the texts of a page's files. Files that cannot be changed are added to `failures`.
void change_page(const QString& website_folder, const QString& page,
                 const std::function<QString(const QString& text)>& change, QList<FileError>& failures);

/// The names that a page's stored fragment of foreign HTML may have, from the Website's folder on.
[[nodiscard]] QStringList fragment_files(const QString& page);

/// Gives the stored fragment of a page that was moved its new name, in place of one that has it. What fails is added to
/// `failures`.
void move_fragment(const QString& website_folder, const QString& from, const QString& to, QList<FileError>& failures);

/// A message that lists the files of `failures`, at most ten, below `introduction`; empty when there are none.
[[nodiscard]] QString left_undone_message(const QString& introduction, const QString& website_folder,
                                          const QList<FileError>& failures);

}  // namespace pondera
