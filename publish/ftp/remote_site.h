#pragma once

#include <QString>
#include <QStringList>

#include <expected>

namespace pondera {

/// The folders to enter one after the other, from where the server's login leads to, to come to a Website's folder. For
/// nothing typed that is the Website's name in the server's folder "Vantiles", for a plain name that one, and for a
/// name that begins with "/" exactly that folder. The fault is a sentence for the person.
[[nodiscard]] std::expected<QStringList, QString> way_to_site(const QString& typed, const QString& website);

/// The web address under which visitors are likely to find what is published to `folder` (as `way_to_site` goes there)
/// of the server `host` (as typed): a guess, for the person to correct.
[[nodiscard]] QString likely_web_address(const QString& host, const QString& folder);

/// The address as a browser is to be sent to it; empty when it is none of the web.
[[nodiscard]] QString browsable_address(const QString& typed);

}  // namespace pondera
