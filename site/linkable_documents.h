#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace pondera {

/// The endings of files that a link can offer to visitors, to read, to hear or to download, lower case.
[[nodiscard]] const QStringList& document_endings();

/// The files beside a Website's pages that links can offer to visitors, in alphabetical order.
[[nodiscard]] QStringList list_linkable_documents(const QString& website_folder);

/// The message that refuses a file of this computer as the target of a link: nothing chosen, no file, a web page (which
/// needs its pictures with it) or a file that visitors have no use for. Nothing for a good one.
[[nodiscard]] std::optional<QString> refusal_of_document(const QString& path);

}  // namespace pondera
