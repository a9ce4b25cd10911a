#pragma once

#include <QString>
#include <QStringList>

namespace pondera {

class Roots;

/// True when the folder is a Website: it holds the editing copy of a home page.
[[nodiscard]] bool is_website(const QString& folder);

/// True for the folders that lie beside the Websites and are none: system, tools and publishing folders, and those of
/// help and catalogues, whose names begin with "_". Case is ignored.
[[nodiscard]] bool is_reserved_folder(const QString& name);

/// The spelling in which a name stands among the files and folders of the Websites root; empty when it is free. Names
/// that differ in case only count as the same, as they do on many servers.
[[nodiscard]] QString name_in_use(const Roots& roots, const QString& name);

/// The names of the Websites under the Websites root, in alphabetical order. Empty when the root cannot be read.
[[nodiscard]] QStringList list_websites(const Roots& roots);

/// The published file names of a Website's pages: the home page first, the others in alphabetical order. A page that so
/// far has only an editing copy is among them.
[[nodiscard]] QStringList list_pages(const QString& website_folder);

/// The documents of a Website that can be linked to, in alphabetical order.
[[nodiscard]] QStringList list_documents(const QString& website_folder);

}  // namespace pondera
