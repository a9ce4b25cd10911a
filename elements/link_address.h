#pragma once

#include <QString>

#include <expected>

namespace pondera {

/// The address that a link is to lead to, from what a person typed: "www.x.org" gets "https://" in front,
/// "someone@x.org" "mailto:", "+39 06 1234" "tel:". What is written into a page is percent-encoded where an address
/// needs that. The error is the message to show: for nothing, for nonsense, for scripts and other kinds of addresses,
/// and for files of this computer, which no visitor can reach.
[[nodiscard]] std::expected<QString, QString> address_from_typed(const QString& typed);

}  // namespace pondera
