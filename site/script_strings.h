#pragma once

#include <QStringView>

#include <functional>

#include "site/page_references.h"

namespace pondera {

/// Where the strings to look through stand: in attributes, quotes may be written as references or percent-encoded, and
/// settings files hold whole values ("key = _4_Trips.htm") besides.
enum class ScriptPlace { kScript, kAttribute, kSettings };

/// Called with the place of each address: where it begins and ends, and what it is for.
using AddressSeen = std::function<void(qsizetype begin, qsizetype end, ReferenceKind kind)>;

/// Finds the strings that could be the address of a file in the script that stands in `text` from `begin` to `end`, by
/// their endings. Comments that have lines of their own are left out, and so is a string that is appended to another
/// one, unless it is a page's whole name.
void find_file_strings(QStringView text, qsizetype begin, qsizetype end, ScriptPlace place, const AddressSeen& seen);

/// What a file is for, by its ending; nullopt for an ending that no file of a Website has.
[[nodiscard]] std::optional<ReferenceKind> kind_of_file(QStringView address);

}  // namespace pondera
